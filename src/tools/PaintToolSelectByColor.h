#pragma once

#include "tools/PaintToolSelect.h"

/// The magic wand: selects the pixels of like colour around the one that is clicked.
class PaintToolSelectByColor : public PaintToolSelect
{
    Q_OBJECT

public:
    explicit PaintToolSelectByColor(QObject *parent = nullptr);

    void deactivate() override;
    void mouseRelease(const ToolPointerEvent &event) override;

public Q_SLOTS:
    void updateTexture(QImage image) override;

protected:
    void pressAt(const QPoint &pixel) override;
    void moveTo(const QPoint &pixel, bool isHeld) override;
    void doubleClickAt(const QPoint &pixel) override { pressAt(pixel); }

private:
    /// What a drag did last.
    struct Fill
    {
        QPoint seed;
        int tolerance = 0;
        SelectionMode mode = SelectionMode::Replace;
        FloatImage mask; ///< null for nothing so far
    };

    void fillFrom(const QPoint &seed);
    bool isFilledAlready(const QPoint &seed, SelectionMode mode) const;

    int m_tolerance = 32; ///< 0 to 255
    QImage m_colors;      ///< of the texture, made with the first fill
    Fill m_last;
};
