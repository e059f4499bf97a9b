#pragma once

#include "ui/BodiesWindow.h"

class PaintTool;

/// The program's window with one painted body, and a tool that works on it by events sent to the
/// view. Places are pixels of the body.
class PaintingWindow : public BodiesWindow
{
public:
    PaintingWindow(int side, std::unique_ptr<PaintTool> tool);
    ~PaintingWindow();

    int side() const { return m_side; }
    PaintTool &tool() const { return *m_tool; }
    void setBrushSize(int size);

    void press(const QPoint &pixel) { send(QEvent::MouseButtonPress, pixel); }
    void moveTo(const QPoint &pixel) { send(QEvent::MouseMove, pixel); }
    void release(const QPoint &pixel) { send(QEvent::MouseButtonRelease, pixel); }

private:
    void send(QEvent::Type type, const QPoint &pixel);

    int m_side;
    std::unique_ptr<PaintTool> m_tool;
};
