#pragma once

#include "tools/PaintToolBrushBasedOnNormalMap.h"

#include <QImage>

class AnglePicker;

QT_BEGIN_NAMESPACE
class QPushButton;
QT_END_NAMESPACE

/// Turns the surface to one direction, which is chosen on a globe or picked from the image.
class PaintToolAngleBrush : public PaintToolBrushBasedOnNormalMap
{
    Q_OBJECT

public:
    explicit PaintToolAngleBrush(QObject *parent = nullptr);

    int kind() const override { return 2; }
    void deactivate() override;
    void mousePress(const ToolPointerEvent &event) override;
    void mouseMove(const ToolPointerEvent &event) override;
    void mouseRelease(const ToolPointerEvent &event) override;
    void keyPress(int key, Qt::KeyboardModifiers modifiers) override;
    void keyRelease(int key, Qt::KeyboardModifiers modifiers) override;

public Q_SLOTS:
    void updateTexture(QImage image) override;
    void updateSelection(FloatImage selection) override;

protected:
    QRect startStroke(const QPoint &point) override;
    SurfacePiece strokeResult(const QRect &changed) override;
    void updateCursor() override;

private:
    void setAngle(AngleImage::Pixel angle);
    void fill();
    bool awaitsPick() const;
    bool picks(const ToolPointerEvent &event);
    void showPickCursor(bool isShown);

    AnglePicker *m_picker;
    QPushButton *m_pick = nullptr; ///< pressed until something was picked
    QPushButton *m_fill = nullptr;
    AngleImage::Pixel m_angle;
    AngleImage::Pixel m_strokeAngle; ///< as it was when the stroke began
    QImage m_texture;
    bool m_showsPickCursor = false;
    bool m_hasPicked = false; ///< since the press
};
