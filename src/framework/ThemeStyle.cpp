#include "framework/ThemeStyle.h"

#include "framework/ThemeColors.h"
#include "framework/ThemePainting.h"
#include "framework/UiScale.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDateTime>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPainter>
#include <QStyleOption>

namespace {

constexpr int controlHeight = 24;

/// Part of a spin box or an editable combo box, which has the frame.
bool isInsideField(const QWidget *widget)
{
    const QWidget *parent = widget ? widget->parentWidget() : nullptr;
    return qobject_cast<const QAbstractSpinBox *>(parent) ||
           qobject_cast<const QComboBox *>(parent);
}

void paintLineEdit(QPainter &painter, const QStyleOption &option, const QWidget *widget)
{
    const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(&option);
    if (isInsideField(widget))
        return;
    if (frame && frame->lineWidth > 0)
        paintField(painter, option);
    else
        painter.fillRect(option.rect, option.palette.brush(QPalette::Base));
}

/// A menu's line without a title.
bool isSeparator(const QStyleOption *option)
{
    const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
    return item && item->menuItemType == QStyleOptionMenuItem::Separator && item->text.isEmpty();
}

/// The ground of a checked entry's icon in a menu, which has the colour read on the accent.
void paintCommandPanel(QPainter &painter, const QStyleOption &option, const QWidget *widget)
{
    if (!qobject_cast<const QMenu *>(widget))
        return paintPushButton(painter, option);
    QStyleOption checked = option;
    checked.state.setFlag(QStyle::State_Sunken, false);
    checked.state.setFlag(QStyle::State_MouseOver, false);
    checked.state.setFlag(QStyle::State_On, true);
    paintToolButton(painter, checked);
}

void paintSeparator(QPainter &painter, const QStyleOption &option)
{
    const QRect rect = option.rect;
    const QColor line = shade(option.palette, 0.18);
    const int inset = scaled(4);
    if (option.state.testFlag(QStyle::State_Horizontal))
        painter.fillRect(QRect(rect.center().x(), rect.top() + inset, 1, rect.height() - 2 * inset),
                         line);
    else
        painter.fillRect(QRect(rect.left() + inset, rect.center().y(), rect.width() - 2 * inset, 1),
                         line);
}

/// The ground of bars, with a line at its lower edge.
void paintBar(QPainter &painter, const QStyleOption &option)
{
    painter.fillRect(option.rect, option.palette.window());
    painter.fillRect(QRect(option.rect.bottomLeft(), QSize(option.rect.width(), 1)),
                     themeColors(option.palette).line);
}

/// What stands for a progress that nobody knows runs through the bar; who shows it repaints it.
QRectF runningPart(const QRectF &bar)
{
    constexpr qint64 lap = 1200; // milliseconds
    const double way = double(QDateTime::currentMSecsSinceEpoch() % lap) / lap;
    const double width = bar.width() / 3.0;
    return {bar.left() - width + way * (bar.width() + width), bar.top(), width, bar.height()};
}

void paintProgress(QPainter &painter, const QStyleOptionProgressBar &option)
{
    const double range = static_cast<double>(option.maximum) - option.minimum;
    QRectF done = option.rect;
    if (range > 0)
        done.setWidth(done.width() * (option.progress - option.minimum) / range);
    else
        done &= runningPart(done);
    if (done.width() >= 1.0)
        paintBox(painter, done, themeColors(option.palette).accent);
}

/// Where the pointer stands in menus is told by a quiet grey: the accent marks what is active.
template <typename Option>
Option withQuietHighlight(const Option &option)
{
    Option quiet = option;
    quiet.palette.setColor(QPalette::Highlight, shade(option.palette, 0.14));
    quiet.palette.setColor(QPalette::HighlightedText, option.palette.color(QPalette::WindowText));
    return quiet;
}

} // namespace

ThemeStyle::ThemeStyle()
    : QProxyStyle(QStringLiteral("Fusion"))
{
}

void ThemeStyle::polish(QWidget *widget)
{
    QProxyStyle::polish(widget);
    if (qobject_cast<QLineEdit *>(widget))
        widget->setAttribute(Qt::WA_Hover);
    if (auto *view = qobject_cast<QAbstractItemView *>(widget))
        view->viewport()->setAttribute(Qt::WA_Hover);
    // A file may be named like markup, and would show as such in boxes. Labels that want markup say
    // so. Tool tips have one label for all: see plainToolTip().
    auto *label = qobject_cast<QLabel *>(widget);
    if (label && label->textFormat() == Qt::AutoText && !label->inherits("QTipLabel"))
        label->setTextFormat(Qt::PlainText);
}

void ThemeStyle::drawPrimitive(PrimitiveElement element,
                               const QStyleOption *option,
                               QPainter *painter,
                               const QWidget *widget) const
{
    switch (element) {
    case PE_PanelLineEdit:
        return paintLineEdit(*painter, *option, widget);
    case PE_FrameLineEdit:
        return paintField(*painter, *option);
    case PE_Frame:
        return paintBox(*painter, option->rect, {}, themeColors(option->palette).line);
    case PE_FrameGroupBox:
    case PE_FrameStatusBarItem:
    case PE_PanelStatusBar:
    case PE_FrameTabWidget:
    case PE_FrameTabBarBase:
        return;
    case PE_PanelTipLabel:
        painter->fillRect(option->rect, themeColors(option->palette).field);
        return painter->fillRect(option->rect.adjusted(1, 1, -1, -1),
                                 option->palette.toolTipBase());
    case PE_FrameFocusRect:
        return paintFocus(*painter, *option, widget);
    case PE_PanelButtonTool:
        return paintToolButton(*painter, *option);
    case PE_PanelButtonCommand:
        return paintCommandPanel(*painter, *option, widget);
    case PE_FrameDefaultButton:
        return;
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
        return paintTick(*painter, *option, false);
    case PE_IndicatorRadioButton:
        return paintTick(*painter, *option, true);
    case PE_IndicatorArrowDown:
        return paintArrow(*painter, *option, option->rect, 0);
    case PE_IndicatorArrowLeft:
        return paintArrow(*painter, *option, option->rect, 90);
    case PE_IndicatorArrowUp:
        return paintArrow(*painter, *option, option->rect, 180);
    case PE_IndicatorArrowRight:
        return paintArrow(*painter, *option, option->rect, 270);
    case PE_IndicatorToolBarSeparator:
        return paintSeparator(*painter, *option);
    case PE_PanelItemViewItem:
        if (const auto *item = qstyleoption_cast<const QStyleOptionViewItem *>(option))
            return paintItemRow(*painter, *item);
        break;
    default:
        break;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void ThemeStyle::drawControl(ControlElement element,
                             const QStyleOption *option,
                             QPainter *painter,
                             const QWidget *widget) const
{
    const auto *menuItem = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
    const auto *toolButton = qstyleoption_cast<const QStyleOptionToolButton *>(option);
    const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option);
    const auto *progress = qstyleoption_cast<const QStyleOptionProgressBar *>(option);
    if (element == CE_MenuBarItem && menuItem)
        return paintMenuTitle(*painter, *menuItem, *proxy());
    if (element == CE_MenuBarEmptyArea)
        return painter->fillRect(option->rect, option->palette.window());
    if (const auto *tab = qstyleoption_cast<const QStyleOptionTab *>(option);
        element == CE_TabBarTabShape && tab)
        return paintTab(*painter, *tab);
    if (element == CE_MenuItem && isSeparator(option))
        return paintMenuSeparator(*painter, *option);
    if (element == CE_MenuItem && menuItem) {
        const auto quiet = withQuietHighlight(*menuItem);
        return QProxyStyle::drawControl(element, &quiet, painter, widget);
    }
    if (element == CE_ToolButtonLabel && toolButton && option->state.testFlag(State_On) &&
        option->state.testFlag(State_Enabled)) {
        QStyleOptionToolButton checked = *toolButton;
        checked.palette.setColor(QPalette::ButtonText, themeColors(option->palette).onAccent);
        return QProxyStyle::drawControl(element, &checked, painter, widget);
    }
    if (element == CE_PushButtonLabel && button && option->state.testFlag(State_Enabled) &&
        (option->state.testFlag(State_On) ||
         button->features.testFlag(QStyleOptionButton::DefaultButton))) {
        QStyleOptionButton filled = *button;
        filled.palette.setColor(QPalette::ButtonText, themeColors(option->palette).onAccent);
        return QProxyStyle::drawControl(element, &filled, painter, widget);
    }
    if (element == CE_ToolBar || element == CE_HeaderSection || element == CE_HeaderEmptyArea)
        return paintBar(*painter, *option);
    if (element == CE_ProgressBarGroove)
        return paintField(*painter, *option);
    if (element == CE_ProgressBarContents && progress)
        return paintProgress(*painter, *progress);
    QProxyStyle::drawControl(element, option, painter, widget);
}

void ThemeStyle::drawComplexControl(ComplexControl control,
                                    const QStyleOptionComplex *option,
                                    QPainter *painter,
                                    const QWidget *widget) const
{
    const auto *slider = qstyleoption_cast<const QStyleOptionSlider *>(option);
    const auto arrow = [&](SubControl part, int degrees, bool isEnabled) {
        QStyleOption look(*option);
        look.state.setFlag(State_Selected, false);
        if (!isEnabled)
            look.palette.setCurrentColorGroup(QPalette::Disabled);
        paintArrow(*painter, look, proxy()->subControlRect(control, option, part, widget), degrees);
    };
    if (control == CC_Slider && slider)
        return paintSlider(*painter, *slider, *proxy(), widget);
    if (control == CC_ScrollBar && slider)
        return paintScrollBar(*painter, *slider, *proxy(), widget);
    if (const auto *spin = qstyleoption_cast<const QStyleOptionSpinBox *>(option);
        control == CC_SpinBox && spin) {
        if (spin->frame)
            paintField(*painter, *option);
        if (spin->buttonSymbols == QAbstractSpinBox::NoButtons)
            return;
        arrow(SC_SpinBoxUp, 180, spin->stepEnabled.testFlag(QAbstractSpinBox::StepUpEnabled));
        arrow(SC_SpinBoxDown, 0, spin->stepEnabled.testFlag(QAbstractSpinBox::StepDownEnabled));
        return;
    }
    if (control == CC_ComboBox) {
        paintField(*painter, *option);
        return arrow(SC_ComboBoxArrow, 0, option->state.testFlag(State_Enabled));
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

int ThemeStyle::pixelMetric(PixelMetric metric,
                            const QStyleOption *option,
                            const QWidget *widget) const
{
    switch (metric) {
    case PM_ScrollBarExtent:
        return scaled(10);
    case PM_ScrollBarSliderMin:
    case PM_ToolBarIconSize:
        return scaled(24);
    case PM_ToolBarItemSpacing:
        return scaled(2);
    case PM_ToolBarItemMargin:
        return scaled(4);
    case PM_ToolBarSeparatorExtent:
        return scaled(9);
    case PM_ToolTipLabelFrameWidth:
        return scaled(5);
    case PM_MenuPanelWidth:
        return 1;
    case PM_MenuVMargin:
    case PM_MenuBarItemSpacing:
        return scaled(4);
    case PM_MenuBarHMargin:
    case PM_MenuBarVMargin:
        return scaled(2);
    case PM_LayoutHorizontalSpacing:
    case PM_LayoutVerticalSpacing:
        return scaled(8);
    case PM_LayoutLeftMargin:
    case PM_LayoutTopMargin:
    case PM_LayoutRightMargin:
    case PM_LayoutBottomMargin:
        return scaled(12);
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int ThemeStyle::styleHint(StyleHint hint,
                          const QStyleOption *option,
                          const QWidget *widget,
                          QStyleHintReturn *returned) const
{
    switch (hint) {
    case SH_Slider_AbsoluteSetButtons:
        return Qt::LeftButton;
    case SH_ToolTipLabel_Opacity:
        return 255;
    case SH_EtchDisabledText:
    case SH_DialogButtonBox_ButtonsHaveIcons:
    case SH_ScrollView_FrameOnlyAroundContents:
        return 0;
    default:
        return QProxyStyle::styleHint(hint, option, widget, returned);
    }
}

QRect ThemeStyle::subControlRect(ComplexControl control,
                                 const QStyleOptionComplex *option,
                                 SubControl part,
                                 const QWidget *widget) const
{
    if (const auto *slider = qstyleoption_cast<const QStyleOptionSlider *>(option);
        control == CC_ScrollBar && slider)
        return scrollBarPart(*slider, part, pixelMetric(PM_ScrollBarSliderMin, option, widget));
    return QProxyStyle::subControlRect(control, option, part, widget);
}

QRect ThemeStyle::subElementRect(SubElement element,
                                 const QStyleOption *option,
                                 const QWidget *widget) const
{
    const QRect rect = QProxyStyle::subElementRect(element, option, widget);
    if (element != SE_LineEditContents || isInsideField(widget))
        return rect;
    return rect.adjusted(scaled(3), 0, -scaled(3), 0);
}

QIcon ThemeStyle::standardIcon(StandardPixmap icon,
                               const QStyleOption *option,
                               const QWidget *widget) const
{
    const QPalette palette = QApplication::palette();
    const ThemeColors colors = themeColors(palette);
    switch (icon) {
    case SP_MessageBoxInformation:
        return signIcon(colors.quietText, QLatin1Char('i'));
    case SP_MessageBoxQuestion:
        return signIcon(colors.quietText, QLatin1Char('?'));
    case SP_MessageBoxWarning:
        return signIcon(colors.accent, QLatin1Char('!'));
    case SP_MessageBoxCritical:
        return signIcon(colors.trouble, QLatin1Char('!'));
    default:
        return QProxyStyle::standardIcon(icon, option, widget);
    }
}

QSize ThemeStyle::sizeFromContents(ContentsType type,
                                   const QStyleOption *option,
                                   const QSize &size,
                                   const QWidget *widget) const
{
    const QSize wanted = QProxyStyle::sizeFromContents(type, option, size, widget);
    const QSize atLeast(0, scaled(controlHeight));
    switch (type) {
    case CT_LineEdit:
        return isInsideField(widget) ? wanted : wanted.expandedTo(atLeast);
    case CT_MenuItem:
        return isSeparator(option) ? QSize(wanted.width(), scaled(9))
                                   : wanted.expandedTo(QSize(0, scaled(26)));
    case CT_SpinBox:
    case CT_ComboBox:
        return wanted.expandedTo(atLeast);
    case CT_PushButton:
        return wanted.expandedTo(QSize(scaled(80), scaled(controlHeight)));
    case CT_ToolButton:
        return wanted.expandedTo(QSize(atLeast.height(), atLeast.height()));
    case CT_Slider:
        return wanted.expandedTo(widget && widget->height() < widget->width() ? atLeast : QSize());
    default:
        return wanted;
    }
}
