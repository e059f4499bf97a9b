#pragma once

#include <QWidget>

/// A path, typed or chosen by the button beside it.
class GPathEdit : public QWidget
{
    Q_OBJECT

public:
    enum class Kind { Folder, File };

    explicit GPathEdit(Kind kind, QWidget *parent = nullptr);

    /// What stands there while the path is empty.
    void setEmptyText(const QString &text);
    /// The title of the dialog that the button opens.
    void setDialogTitle(const QString &title);
    /// For Kind::File, as QFileDialog takes it.
    void setNameFilter(const QString &filter);
    void setLabel(const QString &label);
    void setMixed(bool isMixed);

    QString path() const;

public Q_SLOTS:
    void setPath(const QString &path);

Q_SIGNALS:
    /// The user has finished typing another path, or chosen one.
    void pathChanged(const QString &path);
};

/// The chooser of a folder.
class GDirectoryEdit : public GPathEdit
{
    Q_OBJECT

public:
    explicit GDirectoryEdit(QWidget *parent = nullptr)
        : GPathEdit(Kind::Folder, parent)
    {
    }
};
