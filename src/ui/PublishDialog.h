#pragma once

#include <QDialog>

class GDirectoryEdit;
class Project;
class QDialogButtonBox;
class QLabel;
class QLineEdit;

/// Where normal maps go and what their names end with.
class PublishDialog : public QDialog
{
    Q_OBJECT

public:
    explicit PublishDialog(QWidget *parent = nullptr);

    /// Asks for the export settings of @p project and stores them as one undo step; false when the
    /// user cancels. Insists on a directory or a suffix, without which the maps would replace the
    /// sprites.
    bool run(Project &project);

private:
    void load(const Project &project);
    void store(Project &project) const;
    /// Why what is typed can't be stored; empty when it can.
    QString trouble() const;
    void showTrouble();

    const Project *m_project = nullptr; ///< while it is asked about
    GDirectoryEdit *m_directory;
    QLineEdit *m_suffix;
    QLabel *m_trouble;
    QDialogButtonBox *m_buttons;
};
