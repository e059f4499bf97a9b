#pragma once

#include "model/properties/PropertyList.h"
#include "preview/BorrowedContext.h"
#include "ui/MainWindow.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QTemporaryDir>
#include <QVector>

#include <functional>
#include <memory>

class EditorGraphicsView;
class NormalMapEditorScene;
class SpriteItem;

/// The program's window with some bodies. No frame is drawn while things are
/// measured: by software that takes longer than all else.
class BodiesWindow
{
public:
    /// Makes bodies of the project; the folder is for their sprites.
    using MakeBodies = std::function<PropertyList::Entries(Project &, const QTemporaryDir &)>;

    explicit BodiesWindow(const MakeBodies &makeBodies);
    ~BodiesWindow();

    MainWindow &window() { return m_window; }
    Project &project() const { return m_window.project(); }
    NormalMapEditorScene &scene() const;
    EditorGraphicsView &view() const { return *m_view; }
    /// In the order of the bodies.
    const QVector<SpriteItem *> &items() const { return m_items; }

    /// Hands over the results that the background has ready.
    static void deliver();
    /// Waits for the normal maps and hands them over.
    void waitForNormalMaps();
    /// Hands over what the background makes until there are so many normal maps.
    void waitForResults(int count);
    /// Brings the textures up to date.
    void upload();
    /// How many normal maps were handed over so far.
    int results() const { return m_results; }
    /// Lets everything that goes on come to its end.
    void rest();

private:
    QTemporaryDir m_folder;
    QOffscreenSurface m_surface;
    QOpenGLContext m_context;
    MainWindow m_window;
    EditorGraphicsView *m_view = nullptr;
    QVector<SpriteItem *> m_items;
    std::shared_ptr<BorrowedContext> m_textures;
    int m_results = 0;
};
