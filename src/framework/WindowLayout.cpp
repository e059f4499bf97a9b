#include "framework/WindowLayout.h"

#include "base/GSettings.h"

#include <QAbstractButton>
#include <QAction>
#include <QCoreApplication>
#include <QEvent>
#include <QMainWindow>
#include <QSplitter>

namespace {

QString geometryKey()
{
    return QStringLiteral("window/geometry");
}

QString stateKey()
{
    return QStringLiteral("window/state");
}

QString splitterKey(const QSplitter &splitter)
{
    return QStringLiteral("window/splitters/") + splitter.objectName();
}

QList<QSplitter *> namedSplitters(const QMainWindow &window)
{
    QList<QSplitter *> named;
    for (QSplitter *splitter : window.findChildren<QSplitter *>()) {
        if (!splitter->objectName().isEmpty())
            named.append(splitter);
    }
    return named;
}

/// Keeps an action's check mark at whether a panel is shown.
class PanelAction : public QAction
{
public:
    explicit PanelAction(QWidget *panel)
        : QAction(panel->windowTitle(), panel)
        , m_panel(panel)
    {
        setObjectName(QLatin1String(panel->metaObject()->className()));
        setCheckable(true);
        setChecked(!panel->isHidden());
        panel->installEventFilter(this);
        connect(this, &QAction::toggled, panel, &QWidget::setVisible);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const bool mayChange =
            event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent;
        if (watched == m_panel && mayChange)
            setChecked(!m_panel->isHidden());
        return QAction::eventFilter(watched, event);
    }

private:
    QWidget *m_panel;
};

} // namespace

void keepLayout(const QMainWindow &window, GSettings &settings)
{
    settings.setValue(geometryKey(), window.saveGeometry());
    settings.setValue(stateKey(), window.saveState());
    for (const QSplitter *splitter : namedSplitters(window))
        settings.setValue(splitterKey(*splitter), splitter->saveState());
}

void restoreLayout(QMainWindow &window, const GSettings &settings)
{
    window.restoreGeometry(settings.value(geometryKey()).toByteArray());
    window.restoreState(settings.value(stateKey()).toByteArray());
    for (QSplitter *splitter : namedSplitters(window)) {
        // The state holds more than sizes; what the program sets now counts.
        const int handleWidth = splitter->handleWidth();
        const bool isCollapsible = splitter->childrenCollapsible();
        splitter->restoreState(settings.value(splitterKey(*splitter)).toByteArray());
        splitter->setHandleWidth(handleWidth);
        splitter->setChildrenCollapsible(isCollapsible);
    }
}

QAction *createPanelAction(QWidget *panel)
{
    return new PanelAction(panel);
}

void leaveFocusOnClick(QWidget &panel)
{
    for (QAbstractButton *button : panel.findChildren<QAbstractButton *>())
        button->setFocusPolicy(Qt::TabFocus);
    // The toolkit gives it no name, and so nothing to read out.
    if (auto *more = panel.findChild<QAbstractButton *>(QStringLiteral("qt_toolbar_ext_button")))
        more->setAccessibleName(QCoreApplication::translate("WindowLayout", "More"));
}
