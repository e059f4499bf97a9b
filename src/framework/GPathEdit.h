#pragma once

#include <QWidget>

class GLineEdit;
QT_BEGIN_NAMESPACE
class QMimeData;
class QToolButton;
QT_END_NAMESPACE

/// A path, typed, dropped or chosen by the button beside it.
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
    void setLabel(const QString &label);
    void setMixed(bool isMixed);

    /// As it stands there, also while it is being typed.
    QString path() const;

public Q_SLOTS:
    /// Shows @p path; sends nothing.
    void setPath(const QString &path);

Q_SIGNALS:
    /// The user has finished typing another path, dropped or chosen one.
    void pathChanged(const QString &path);
    /// Another path() stands there, also one that is still being typed.
    void textChanged();

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void completePaths();
    void takeCompleted();
    void choose();
    QString fittingPath(const QMimeData &data) const;

    Kind m_kind;
    GLineEdit *m_line;
    QToolButton *m_button;
    QString m_dialogTitle;
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
