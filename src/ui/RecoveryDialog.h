#pragma once

#include <QDateTime>
#include <QDialog>

#include <vector>

class QLabel;
class QListWidget;
class QPushButton;
struct RecoveryEntry;

/// Offers the snapshots that other runs have left: each can be recovered, deleted, or left for
/// later.
class RecoveryDialog : public QDialog
{
    Q_OBJECT

public:
    /// @p entries, one at least, outlive the dialog; those that are deleted lose their files.
    explicit RecoveryDialog(std::vector<RecoveryEntry> &entries, QWidget *parent = nullptr);

    /// Shows the dialog and returns the entry to be recovered, null for none now.
    RecoveryEntry *choose();

    /// How long ago @p time was at @p now, such as "5 minutes ago".
    static QString age(const QDateTime &time, const QDateTime &now);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void addRow(const RecoveryEntry &entry);
    void showCurrent();
    void deleteCurrent();

    std::vector<RecoveryEntry> &m_entries;
    QListWidget *m_list;
    QLabel *m_picture;
    QLabel *m_details;
    QPushButton *m_recover;
};
