#pragma once

#include "model/ItemSelectionModel.h"
#include "model/PixelSelectionModel.h"
#include "model/Project.h"
#include "preview/EditorGraphicsViewVesperine.h"
#include "preview/NormalMapEditorScene.h"
#include "support/Documents.h"

#include <QLineEdit>

/// A window with a view of a project, and an edit line for the focus to be elsewhere.
struct ShownEditor
{
    ShownEditor();
    ~ShownEditor();

    Body &add(const QString &name, const QSize &size = {64, 64}, const QColor &color = Qt::blue);
    QPoint at(const QPointF &scenePoint) const { return view.mapFromScene(scenePoint); }
    QPoint on(const Body &body, const QPointF &pixel = {20, 20}) const;
    /// Beside all sprites.
    QPoint besideAll() const { return at(scene.spritesRect().topLeft() - QPointF(9, 9)); }
    /// The names of the selected bodies, with spaces between them.
    QByteArray selected() const;
    void click(const QPoint &point, Qt::KeyboardModifiers modifiers = {}) const;

    Folder folder;
    Project project;
    ItemSelectionModel bodies;
    PixelSelectionModel pixels;
    NormalMapEditorScene scene{bodies, pixels};
    QWidget window;
    EditorGraphicsViewVesperine view;
    QWidget &viewport = *view.viewport();
    QLineEdit edit;
};
