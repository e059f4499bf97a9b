#include "ui/AnchorGrid.h"

#include "framework/ControlSizes.h"
#include "framework/ThemeColors.h"
#include "framework/UiScale.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QPainter>
#include <QToolButton>

#include <algorithm>
#include <cmath>

namespace {
constexpr int side = 3;

/// The picture where it is chosen, beside that an arrow away from it.
class PlaceButton : public QToolButton
{
public:
    PlaceButton(const QString &name, QButtonGroup &places, QWidget *parent)
        : QToolButton(parent)
        , m_places(places)
    {
        setCheckable(true);
        setAutoExclusive(true); // which lets arrow keys go from one to the next
        setAccessibleName(name);
        setToolTip(name);
        setFixedSize(scaled(controlHeight), scaled(controlHeight));
    }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QToolButton::paintEvent(event);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.translate(QRectF(rect()).center());
        painter.scale(width() / 24.0, height() / 24.0);
        if (isChecked()) {
            painter.fillRect(QRectF(-5, -5, 10, 10), themeColors(palette()).onAccent);
            return;
        }
        const int place = m_places.id(this);
        const int chosen = m_places.checkedId();
        const QPoint away(place % side - chosen % side, place / side - chosen / side);
        if (std::max(std::abs(away.x()), std::abs(away.y())) == 1)
            drawArrow(painter, away);
    }

private:
    void drawArrow(QPainter &painter, const QPoint &direction) const
    {
        painter.setPen(QPen(palette().buttonText(), 1.75, Qt::SolidLine, Qt::RoundCap));
        painter.rotate(std::atan2(direction.y(), direction.x()) * 180 / M_PI);
        painter.drawLine(QPointF(-6, 0), QPointF(6, 0));
        for (const double y : {-4.0, 4.0})
            painter.drawLine(QPointF(2, y), QPointF(6, 0));
    }

    QButtonGroup &m_places;
};
} // namespace

AnchorGrid::AnchorGrid(QWidget *parent)
    : QWidget(parent)
    , m_places(new QButtonGroup(this))
{
    const QString names[] = {tr("Top left"),
                             tr("Top"),
                             tr("Top right"),
                             tr("Left"),
                             tr("Middle"),
                             tr("Right"),
                             tr("Bottom left"),
                             tr("Bottom"),
                             tr("Bottom right")};
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(scaled(2));
    for (const QString &name : names) {
        const int place = m_places->buttons().size();
        auto *button = new PlaceButton(name, *m_places, this);
        button->setFocusPolicy(Qt::ClickFocus); // by Tab, only the chosen one
        m_places->addButton(button, place);
        layout->addWidget(button, place / side, place % side);
    }
    auto *middle = m_places->button(side * side / 2);
    middle->setFocusPolicy(Qt::StrongFocus);
    middle->setChecked(true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(m_places, &QButtonGroup::idToggled, this, [this] {
        for (QAbstractButton *button : m_places->buttons())
            button->update(); // all arrows
    });
}

Qt::Alignment AnchorGrid::anchor() const
{
    constexpr Qt::Alignment columns[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
    constexpr Qt::Alignment rows[] = {Qt::AlignTop, Qt::AlignVCenter, Qt::AlignBottom};
    const int place = m_places->checkedId();
    return columns[place % side] | rows[place / side];
}
