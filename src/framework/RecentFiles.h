#pragma once

#include <QMenu>
#include <QStringList>

class GSettings;

/// The menu of the documents that were opened or saved last, the latest first. It keeps their
/// canonical paths in the settings, which it borrows.
class RecentFiles : public QMenu
{
    Q_OBJECT

public:
    static constexpr int limit = 10;

    RecentFiles(GSettings &settings, const QString &title, QWidget *parent = nullptr);

    QStringList paths() const;
    void add(const QString &path);
    /// Nothing can be chosen while it is locked.
    void setLocked(bool isLocked);

Q_SIGNALS:
    void chosen(const QString &path);

private:
    void keep(const QStringList &paths);
    void rebuild();
    void updateEnabled();

    GSettings &m_settings;
    bool m_isLocked = false;
};
