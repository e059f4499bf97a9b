#pragma once

#include "imaging/SelectionMasks.h"
#include "tools/PaintTool.h"

#include <QPoint>

#include <optional>

/// Base of the tools that select pixels: knows the sprite and its selection, and what Shift and Alt
/// mean. The selection itself is the document's; a tool only announces a new one.
class PaintToolSelect : public PaintTool
{
    Q_OBJECT

public:
    using PaintTool::PaintTool;

    void activate(const ToolContext &context, const AngleImage &image) override;
    void deactivate() override;

    void mousePress(const ToolPointerEvent &event) override;
    void mouseMove(const ToolPointerEvent &event) override;
    void mouseDoubleClick(const ToolPointerEvent &event) override;
    void keyPress(int key, Qt::KeyboardModifiers modifiers) override;
    void keyRelease(int key, Qt::KeyboardModifiers modifiers) override;

public Q_SLOTS:
    void updateTexture(QImage image) override;
    void updateSelection(FloatImage selection) override;

protected:
    const QImage &texture() const { return m_texture; }
    const FloatImage &selection() const { return m_selection; }
    /// What the keys that are held mean, and the switch without one; nothing for other ones than
    /// exactly Shift or Alt.
    std::optional<SelectionMode> mode() const;
    /// A switch for who can't hold the keys: a window manager may keep Alt and the mouse to itself.
    void addModeSwitch();

    void select(const FloatImage &selection, bool mergeWithPrevious = false);
    void clearSelection();

    // Of the left button, in whole pixels, which may lie outside of the sprite.
    virtual void pressAt(const QPoint &pixel) = 0;
    virtual void moveTo(const QPoint &pixel, bool isHeld) = 0;
    /// The second press of a double click, which comes as no other press.
    virtual void doubleClickAt(const QPoint &pixel) = 0;

private:
    void setModifiers(Qt::KeyboardModifiers modifiers);
    void showCursor();

    QImage m_texture;
    FloatImage m_selection;
    Qt::KeyboardModifiers m_modifiers = Qt::NoModifier;
    SelectionMode m_modeWithoutKeys = SelectionMode::Replace;
};
