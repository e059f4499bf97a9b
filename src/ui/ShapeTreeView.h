#pragma once

#include <QElapsedTimer>
#include <QStringList>
#include <QTreeView>

class Body;
class ItemSelectionModel;
class Project;
class SpriteDelegate;
class SpriteListModel;

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

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    /// Local paths of files and folders were dropped.
    void pathsDropped(const QStringList &paths);
    /// What is beside it is for the name.
    void thumbnailDoubleClicked();

protected:
    bool event(QEvent *event) override;
    bool edit(const QModelIndex &index, EditTrigger trigger, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    QList<Body *> selectedBodies() const;
    void showSelection();
    void takeSelection();
    void setDropTarget(bool isDropTarget);
    bool isSearching() const;

    ItemSelectionModel &m_selection;
    SpriteListModel *m_model;
    SpriteDelegate *m_delegate;
    bool m_isFollowing = false; // the document is what changes
    bool m_isDropTarget = false;
    QElapsedTimer m_sinceLetter; // of a name that is being typed
};
