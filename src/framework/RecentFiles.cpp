#include "framework/RecentFiles.h"

#include "base/GFileName.h"
#include "base/GSettings.h"
#include "base/PlainText.h"

#include <QDir>
#include <QFileInfo>

namespace {

QString settingsKey()
{
    return QStringLiteral("recentFiles");
}

/// The file's name, then its folder, in which the user's own is short.
QString entryText(int index, const QString &path)
{
    const QFileInfo info(path);
    QString folder = info.path();
    if (const QString home = QDir::homePath();
        (folder + QLatin1Char('/')).startsWith(home + QLatin1Char('/')))
        folder.replace(0, home.size(), QLatin1Char('~'));
    QString text = QStringLiteral("%1   %2").arg(info.fileName(), QDir::toNativeSeparators(folder));
    text = shownText(text).replace(QLatin1Char('&'), QLatin1String("&&"));
    const QString number =
        index < 9 ? QStringLiteral("&%1  ").arg(index + 1) : QStringLiteral("1&0  ");
    return number + text;
}

} // namespace

RecentFiles::RecentFiles(GSettings &settings, const QString &title, QWidget *parent)
    : QMenu(title, parent)
    , m_settings(settings)
{
    // Files come and go, and another window may have changed the list.
    connect(this, &QMenu::aboutToShow, this, &RecentFiles::rebuild);
    rebuild();
}

QStringList RecentFiles::paths() const
{
    return m_settings.value(settingsKey()).toStringList().mid(0, limit);
}

void RecentFiles::add(const QString &path)
{
    const QString canonical = GFileName(path).canonicalPath();
    QStringList paths = this->paths();
    paths.removeAll(canonical);
    paths.prepend(canonical);
    keep(paths.mid(0, limit));
}

void RecentFiles::setLocked(bool isLocked)
{
    m_isLocked = isLocked;
    updateEnabled();
}

void RecentFiles::keep(const QStringList &paths)
{
    m_settings.setValue(settingsKey(), paths);
    rebuild();
}

void RecentFiles::rebuild()
{
    clear();
    const QStringList paths = this->paths();
    for (int i = 0; i < paths.size(); ++i) {
        const QString &path = paths.at(i);
        QAction *action = addAction(entryText(i, path));
        action->setData(path);
        action->setEnabled(QFileInfo(path).isFile());
        action->setStatusTip(shownText(QDir::toNativeSeparators(path)));
        connect(action, &QAction::triggered, this, [this, path] { Q_EMIT chosen(path); });
    }
    addSeparator();
    QAction *clearing = addAction(tr("Clear"));
    connect(clearing, &QAction::triggered, this, [this] { keep({}); });
    updateEnabled();
}

void RecentFiles::updateEnabled()
{
    menuAction()->setEnabled(!m_isLocked && !paths().isEmpty());
}
