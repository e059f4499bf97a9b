#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointF>
#include <QRectF>
#include <QTimer>

#include <functional>

class GLGraphicsLight;

/// Leads the light around the sprites, one turn every four seconds however late its timer is. The
/// light is borrowed.
class LightRotation : public QObject
{
    Q_OBJECT

public:
    /// @p spritesRect tells what to turn around; with an empty one the light stays.
    LightRotation(GLGraphicsLight &light,
                  std::function<QRectF()> spritesRect,
                  QObject *parent = nullptr);

    void setOn(bool isOn);
    bool isOn() const { return m_timer.isActive(); }

private:
    void advance();

    GLGraphicsLight &m_light;
    std::function<QRectF()> m_spritesRect;
    QTimer m_timer;
    QElapsedTimer m_sinceLast;
};
