#include "preview/LightRotation.h"

#include "preview/GLGraphicsLight.h"

#include <QGraphicsScene>
#include <QTransform>

namespace {
constexpr int interval = 10;          // ms
constexpr double turnDuration = 4000; // ms
constexpr double nanosecondsPerMs = 1e6;
} // namespace

LightRotation::LightRotation(GLGraphicsLight &light,
                             std::function<QRectF()> spritesRect,
                             QObject *parent)
    : QObject(parent)
    , m_light(light)
    , m_spritesRect(std::move(spritesRect))
{
    m_timer.setInterval(interval);
    connect(&m_timer, &QTimer::timeout, this, &LightRotation::advance);
}

void LightRotation::setOn(bool isOn)
{
    if (!isOn) {
        m_timer.stop();
        return;
    }
    m_sinceLast.start();
    m_timer.start();
}

void LightRotation::advance()
{
    // A light that does not show catches up when it does: nobody needs the frames before.
    if (!m_light.isVisible())
        return;
    const double ms = static_cast<double>(m_sinceLast.nsecsElapsed()) / nanosecondsPerMs;
    m_sinceLast.restart();
    const QRectF around = m_spritesRect();
    const bool isDragged = m_light.scene() && m_light.scene()->mouseGrabberItem() == &m_light;
    if (around.isEmpty() || isDragged)
        return;
    const QPointF centre = around.center();
    const QTransform turn = QTransform().rotate(ms * 360.0 / turnDuration);
    m_light.setPos(centre + turn.map(m_light.pos() - centre));
}
