#pragma once

#include <QStringList>
#include <QTreeView>

class Body;
class ItemSelectionModel;
class Project;

/// The list of the bodies: thumbnail, name, and a line with size and state. Its selection and that
/// of the document are one. The project and the selection model are borrowed.
class ShapeTreeView : public QTreeView
{
    Q_OBJECT

public:
    explicit ShapeTreeView(ItemSelectionModel &selection, QWidget *parent = nullptr);
    ~ShapeTreeView() override;

    /// Shows the bodies of @p project (null for none); called before the former one goes.
    void setProject(Project *project);
    /// Edits the name of the current body in place.
    void renameCurrent();

Q_SIGNALS:
    /// Local paths of files and folders were dropped.
    void pathsDropped(const QStringList &paths);
};
