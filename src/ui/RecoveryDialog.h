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
    /// @p entries, one at least, outlive the dialog. Those that are deleted are given up, and lose
    /// their files only when they were given up before.
    explicit RecoveryDialog(std::vector<RecoveryEntry> &entries, QWidget *parent = nullptr);

    /// Shows the dialog and returns the entry to be recovered, null for none now; then those that
    /// were given up before have lost their files.
    RecoveryEntry *choose();

    /// How long ago @p time was at @p now, such as "5 minutes ago".
    static QString age(const QDateTime &time, const QDateTime &now);

protected:
    void showEvent(QShowEvent *event) override;

private:
    void addRow(const RecoveryEntry &entry);
    void showOffer();
    void showCurrent();
    void showHint();
    void deleteCurrent();
    void removeGivenUp();

    std::vector<RecoveryEntry> &m_entries;
    QLabel *m_text;
    QListWidget *m_list;
    QLabel *m_picture;
    QLabel *m_details;
    QLabel *m_hint;
    QPushButton *m_recover;
    QPushButton *m_later;
};
