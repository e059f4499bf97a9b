#pragma once

#include "imaging/FloatBrush.h"
#include "tools/BrushAdjustment.h"
#include "tools/BrushPanel.h"
#include "tools/BrushStroke.h"
#include "tools/PaintTool.h"

#include <QDeadlineTimer>
#include <QTimer>

#include <array>
#include <optional>

/// Base of the brushes: their settings, the stroke from press to release, and the outline at the
/// pointer. A brush says what a stroke makes of the surface; unless it says otherwise, it paints
/// its coverage.
class PaintToolBrushBased : public PaintTool
{
    Q_OBJECT

public:
    PaintToolBrushBased(const QIcon &icon,
                        const QString &label,
                        const QString &shortLabel,
                        const QString &shortcut,
                        BrushPanel::BrushRows rows,
                        QObject *parent);
    ~PaintToolBrushBased() override;

    int kind() const override { return 1; }
    void activate(const ToolContext &context, const AngleImage &image) override;
    /// Ends an open stroke with its step.
    void deactivate() override;
    void mousePress(const ToolPointerEvent &event) override;
    void mouseMove(const ToolPointerEvent &event) override;
    void mouseRelease(const ToolPointerEvent &event) override;
    /// The second of two quick dabs.
    void mouseDoubleClick(const ToolPointerEvent &event) override;
    void keyPress(int key, Qt::KeyboardModifiers modifiers) override;
    void keyRelease(int key, Qt::KeyboardModifiers modifiers) override;
    bool turnWheel(double notches, Qt::KeyboardModifiers modifiers) override;

public Q_SLOTS:
    void updateNormalMap(AngleImage normalmap) override;
    void updateSelection(FloatImage selection) override;
    /// By the number of the contour: raised cosine, linear, quarter circle.
    void contourChanged(int contour);

protected:
    using enum BrushPanel::BrushRow;

    // Hooks. The stroke's layer is 0 when it starts; each returns the rectangle that was painted.
    virtual QRect startStroke(const QPoint &point);
    /// From lastPoint() to @p point.
    virtual QRect paintSegment(const QPoint &point);
    /// Announces what the stroke makes of the surface in the rectangle painted since last time.
    virtual void announce() = 0;
    /// The stroke has ended and is committed or taken back.
    virtual void strokeEnded() {}
    virtual void updateCursor();

    /// Of the body, as it is stored; the base of the next stroke.
    const AngleImage &currentImage() const { return m_current; }
    BrushStroke &stroke() { return m_stroke; }
    bool isStrokeOpen() const { return m_isOpen; }
    /// The pen's other end: coverage flattens the surface, whichever brush it is.
    bool isErasing() const { return m_isErasing; }
    const QPoint &lastPoint() const { return m_last; }
    /// As they were when the stroke began.
    const BrushSettings &strokeSettings() const { return m_strokeSettings; }
    /// By the pen's pressure where that means the size.
    double strokeSize() const;
    /// What the pen's pressure leaves of opacity or height, 0 to 1.
    double strokeStrength() const;
    /// Opacity / 100, the peak of a whole image's coverage.
    float opacity() const;
    /// The contour's brush in the stroke's size and hardness, with @p amplitude in its core.
    const FloatBrushFunc &preparedBrush(float amplitude);
    /// Called by brushes when one of their own settings changes: a line by Shift goes on from the
    /// last stroke, which must have been painted alike.
    void settingsChanged();
    /// Ends an open stroke with its step; for commands that start from what it has made.
    void endStroke();
    /// Announces @p surface in place of the whole current one and commits it; for commands.
    void replaceSurface(const AngleImage &surface, const QString &undoText);
    /// What the keys do, for the end of the panel's help.
    QString keysHelp() const;

private:
    void createShortcuts();
    void beginStroke(const QPoint &point);
    void continueStroke(const QPoint &point);
    QRect paintCoverage(const QPoint &from, const QPoint &to);
    /// At once, or when the time of a frame has passed since last time.
    void announceInTime();
    void announcePending();
    void cancelStroke();
    void adjustTo(const QPointF &position);
    void setLinePreview(bool isShown);

    std::unique_ptr<BrushPanel> m_brush;
    std::array<std::unique_ptr<FloatBrushFunc>, 3> m_contours;

    AngleImage m_current;
    BrushStroke m_stroke;
    BrushSettings m_strokeSettings;
    double m_pressure = 1.0;
    QPoint m_last;
    bool m_isOpen = false;
    bool m_isErasing = false;
    bool m_isCommitted = false;
    bool m_isContinuable = false; ///< nothing has changed since the last stroke
    bool m_isPending = false;     ///< something is painted and not announced
    QDeadlineTimer m_nextFrame;   ///< until then what is painted is not announced
    QTimer m_frame;               ///< announces it when no move does
    QPointF m_pointer;
    bool m_showsLine = false;
    std::optional<BrushAdjustment> m_adjustment;
    double m_turned = 0.0; ///< of the wheel, less than a notch
};
