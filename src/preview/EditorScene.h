#pragma once

#include <QGraphicsScene>

/// What every editor's scene has, whatever it draws: the zoom at which it is seen.
class EditorScene : public QGraphicsScene
{
    Q_OBJECT

public:
    using QGraphicsScene::QGraphicsScene;

    float displayScaleFactor() const { return m_displayScaleFactor; }
    /// The zoom of the view, 1 for one scene pixel a screen pixel.
    virtual void setDisplayScaleFactor(float factor) { m_displayScaleFactor = factor; }

private:
    float m_displayScaleFactor = 1.0F;
};
