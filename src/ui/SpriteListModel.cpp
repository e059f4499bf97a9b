#include "ui/SpriteListModel.h"

#include "base/PlainText.h"
#include "framework/PlainToolTip.h"
#include "model/Project.h"
#include "model/Sprite.h"
#include "model/properties/PropertyT.h"

#include <QDir>
#include <QImage>
#include <QSet>

#include <algorithm>

namespace {
QString sizeText(const QSize &size)
{
    return SpriteListModel::tr("%1 × %2 px").arg(size.width()).arg(size.height());
}

QString stateText(const Sprite &sprite)
{
    if (sprite.isWrongSized())
        return SpriteListModel::tr("size changed");
    if (!sprite.problem().isEmpty())
        return SpriteListModel::tr("unreadable");
    return sprite.statusIcon().isEmpty() ? QString() : SpriteListModel::tr("missing");
}

QString detailText(const Body &body)
{
    const Sprite &sprite = body.sprite();
    const QSize size = sprite.isLoaded() ? sprite.fileSize() : body.paintedSize();
    QStringList parts{size.isEmpty() ? QString() : sizeText(size), stateText(sprite)};
    parts.removeAll(QString());
    return parts.join(QStringLiteral(" · "));
}

QString toolTipText(const Body &body)
{
    const Sprite &sprite = body.sprite();
    QString path = shownText(QDir::toNativeSeparators(sprite.filename().value().path()));
    if (sprite.isWrongSized())
        return SpriteListModel::tr("%1\nThe image is %2 now, but its surface was painted at %3.\n"
                                   "Bring the image back to its former size, choose another one "
                                   "under the list, or choose Edit > Reload sprites to clear, "
                                   "anchor or scale the surface.")
            .arg(path, sizeText(sprite.fileSize()), sizeText(body.paintedSize()));
    if (!sprite.problem().isEmpty())
        return SpriteListModel::tr("%1\nThe image can't be read: %2.\nSave it anew, or choose "
                                   "another one under the list.")
            .arg(path, sprite.problem());
    if (!sprite.statusIcon().isEmpty())
        return SpriteListModel::tr("%1\nThe image can't be read.\nPut the file back in its place, "
                                   "or choose it under the list.")
            .arg(path);
    return path;
}

QImage shownImage(const Sprite &sprite)
{
    // The image of a sprite in trouble is a red placeholder, which says nothing in a thumbnail.
    return sprite.statusIcon().isEmpty() ? sprite.image() : QImage();
}

QString accessibleText(const Body &body)
{
    const QString detail = detailText(body);
    const QString name = body.name().value();
    return detail.isEmpty() ? name : name + QStringLiteral(", ") + detail;
}
} // namespace

void SpriteListModel::setProject(Project *project)
{
    Q_EMIT rowsAboutToChange();
    m_project = project;
    m_listObservation = {};
    if (project)
        m_listObservation = ChangeManager::instance().observe(project->bodies(), *this);
    fill(project ? project->bodies().entries() : PropertyList::Entries());
    Q_EMIT rowsChanged();
}

Body *SpriteListModel::body(const QModelIndex &index) const
{
    return index.isValid() ? static_cast<Body *>(m_rows.at(index.row()).body.get()) : nullptr;
}

QModelIndex SpriteListModel::indexOf(const Body *body) const
{
    const auto found = std::find_if(
        m_rows.begin(), m_rows.end(), [body](const Row &row) { return row.body.get() == body; });
    return found == m_rows.end() ? QModelIndex() : index(int(found - m_rows.begin()));
}

int SpriteListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant SpriteListModel::data(const QModelIndex &index, int role) const
{
    const Body *shown = body(index);
    if (!shown)
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return shownText(shown->name().value());
    case Qt::EditRole:
        return shown->name().value();
    case Qt::ToolTipRole:
        return plainToolTip(toolTipText(*shown));
    case Qt::AccessibleTextRole:
        return accessibleText(*shown);
    case detailRole:
        return detailText(*shown);
    case imageRole:
        return shownImage(shown->sprite());
    case statusIconRole:
        return shown->sprite().statusIcon();
    default:
        return {};
    }
}

bool SpriteListModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const Body *renamed = body(index);
    const QString name = plainText(value.toString()).trimmed();
    if (!renamed || role != Qt::EditRole || name.isEmpty())
        return false;
    renamed->name().setValue(name, tr("rename body"), false);
    return true;
}

Qt::ItemFlags SpriteListModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return Qt::NoItemFlags;
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsEditable | Qt::ItemNeverHasChildren;
}

void SpriteListModel::observableChanged(Observable &observable)
{
    if (&observable == &m_project->bodies()) {
        keepUp();
        return;
    }
    for (int row = 0; row < rowCount(); ++row) {
        const Body &shown = *body(index(row));
        if (&observable == &shown.name() || &observable == &shown.sprite())
            Q_EMIT dataChanged(index(row), index(row));
    }
}

SpriteListModel::Row SpriteListModel::makeRow(const std::shared_ptr<Property> &entry)
{
    const auto &body = static_cast<const Body &>(*entry);
    ChangeManager &changes = ChangeManager::instance();
    return {entry, changes.observe(body.name(), *this), changes.observe(body.sprite(), *this)};
}

void SpriteListModel::removeMissing(const PropertyList::Entries &entries)
{
    QSet<const Property *> present;
    for (const auto &entry : entries)
        present.insert(entry.get());
    const auto isGone = [&](int row) { return !present.contains(m_rows.at(row).body.get()); };
    for (int last = rowCount() - 1; last >= 0; --last) {
        if (!isGone(last))
            continue;
        int first = last;
        while (first > 0 && isGone(first - 1))
            --first;
        beginRemoveRows({}, first, last);
        m_rows.erase(m_rows.begin() + first, m_rows.begin() + last + 1);
        endRemoveRows();
        last = first;
    }
}

// All rows that are there stand in the order of the entries.
void SpriteListModel::insertNew(const PropertyList::Entries &entries)
{
    for (int first = 0; first < entries.size(); ++first) {
        const Property *next = first < rowCount() ? m_rows.at(first).body.get() : nullptr;
        int end = first;
        while (end < entries.size() && entries.at(end).get() != next)
            ++end;
        if (end == first)
            continue;
        std::vector<Row> rows;
        for (int i = first; i < end; ++i)
            rows.push_back(makeRow(entries.at(i)));
        beginInsertRows({}, first, end - 1);
        m_rows.insert(m_rows.begin() + first,
                      std::make_move_iterator(rows.begin()),
                      std::make_move_iterator(rows.end()));
        endInsertRows();
        first = end;
    }
}

bool SpriteListModel::isInOrderOf(const PropertyList::Entries &entries) const
{
    auto next = entries.begin();
    for (const Row &row : m_rows) {
        next = std::find(next, entries.end(), row.body);
        if (next == entries.end())
            return false;
        ++next;
    }
    return true;
}

void SpriteListModel::fill(const PropertyList::Entries &entries)
{
    beginResetModel();
    m_rows.clear();
    for (const auto &entry : entries)
        m_rows.push_back(makeRow(entry));
    endResetModel();
}

void SpriteListModel::keepUp()
{
    Q_EMIT rowsAboutToChange();
    const PropertyList::Entries entries = m_project->bodies().entries();
    removeMissing(entries);
    if (isInOrderOf(entries))
        insertNew(entries);
    else
        fill(entries);
    Q_EMIT rowsChanged();
}
