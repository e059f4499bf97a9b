#pragma once

#include "preview/BorrowedContext.h"
#include "ui/MainWindow.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QTemporaryDir>

#include <memory>

class EditorGraphicsView;
class NormalMapEditorScene;
class PaintTool;
class SpriteItem;

/// The program's window with one painted body, and a tool that works on it by events sent to the
/// view. Places are pixels of the body. No frame is drawn while things are measured: by software
/// that takes longer than all else.
class PaintingWindow
{
public:
    PaintingWindow(int side, std::unique_ptr<PaintTool> tool);
    ~PaintingWindow();

    int side() const { return m_side; }
    PaintTool &tool() const { return *m_tool; }
    NormalMapEditorScene &scene() const;
    Project &project() const { return m_window.project(); }
    void setBrushSize(int size);

    void press(const QPoint &pixel) { send(QEvent::MouseButtonPress, pixel); }
    void moveTo(const QPoint &pixel) { send(QEvent::MouseMove, pixel); }
    void release(const QPoint &pixel) { send(QEvent::MouseButtonRelease, pixel); }
    /// Hands over the results that the background has ready.
    static void deliver();
    /// Waits for the normal map and hands it over.
    void waitForNormalMap();
    /// Brings the textures up to date.
    void upload();
    /// How many normal maps were handed over so far.
    int results() const { return m_results; }
    /// Lets everything that goes on come to its end.
    void rest();

private:
    void send(QEvent::Type type, const QPoint &pixel);

    int m_side;
    QTemporaryDir m_folder;
    QOffscreenSurface m_surface;
    QOpenGLContext m_context;
    std::shared_ptr<BorrowedContext> m_textures;
    std::unique_ptr<PaintTool> m_tool;
    MainWindow m_window;
    EditorGraphicsView *m_view = nullptr;
    SpriteItem *m_item = nullptr;
    int m_results = 0;
};
