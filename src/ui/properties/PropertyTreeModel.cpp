#include "ui/properties/PropertyTreeModel.h"

#include "base/Error.h"
#include "model/properties/ChangeManager.h"
#include "model/properties/GProject.h"
#include "model/properties/Observer.h"
#include "model/properties/PropertyReference.h"
#include "ui/properties/PropertyValues.h"

#include <algorithm>
#include <typeinfo>
#include <vector>

/// A field of all structs. It watches what its row shows.
struct PropertyTreeModel::Node final : public Observer
{
    Node(PropertyTreeModel &itsModel, Node *itsParent, const QVector<Property *> &itsProperties)
        : model(itsModel)
        , parent(itsParent)
        , properties(itsProperties)
    {
    }

    void watch()
    {
        for (auto *property : std::as_const(properties))
            observations.push_back(ChangeManager::instance().observe(*property, *this));
        // The presets that may be chosen come and go.
        auto *reference = dynamic_cast<PropertyReference *>(properties.first());
        auto *project = dynamic_cast<GProject *>(&properties.first()->document());
        if (reference && project)
            observations.push_back(ChangeManager::instance().observe(
                project->presetCollection(reference->presetType()), *this));
    }

    void observableChanged(Observable &) override { model.refresh(*this); }

    const PropertyDescription *description() const
    {
        return properties.isEmpty() ? nullptr : properties.first()->description();
    }

    PropertyTreeModel &model;
    Node *parent;
    QVector<Property *> properties;
    std::vector<std::unique_ptr<Node>> children;
    std::vector<Observation> observations;
    QString trouble;
};

namespace {
/// The fields of @p structs that are like @p field of the first one; empty when one lacks it.
QVector<Property *> counterparts(Property &field, const QVector<PropertyStruct *> &structs)
{
    QVector<Property *> result;
    for (const auto *each : structs) {
        auto *found = each->find(field.key());
        if (!found || typeid(*found) != typeid(field) ||
            found->description() != field.description())
            return {};
        result.append(found);
    }
    return result;
}

bool isEditable(const Property &field)
{
    return field.description() && !field.description()->label().isEmpty();
}

QVector<PropertyStruct *> asStructs(const QVector<Property *> &properties)
{
    QVector<PropertyStruct *> result;
    for (auto *property : properties) {
        if (auto *typed = dynamic_cast<PropertyStruct *>(property))
            result.append(typed);
    }
    return result;
}
} // namespace

PropertyTreeModel::PropertyTreeModel(QObject *parent)
    : QAbstractItemModel(parent)
    , m_root(std::make_unique<Node>(*this, nullptr, QVector<Property *>()))
{
}

PropertyTreeModel::~PropertyTreeModel() = default;

void PropertyTreeModel::setStructs(const QVector<PropertyStruct *> &structs, const QString &keyPart)
{
    beginResetModel();
    submit();
    m_root = std::make_unique<Node>(*this, nullptr, QVector<Property *>());
    if (!structs.isEmpty())
        addFields(*m_root, structs, keyPart);
    endResetModel();
}

void PropertyTreeModel::addFields(Node &parent,
                                  const QVector<PropertyStruct *> &structs,
                                  const QString &keyPart)
{
    for (const auto &field : structs.first()->fields()) {
        const auto properties = counterparts(*field, structs);
        if (properties.isEmpty())
            continue;
        auto node = std::make_unique<Node>(parent.model, &parent, properties);
        const bool isAskedFor = field->key().contains(keyPart);
        const auto inner = asStructs(properties);
        if (!inner.isEmpty())
            addFields(*node, inner, isAskedFor ? QString() : keyPart);
        else if (isAskedFor && isEditable(*field))
            node->watch();
        else
            continue;
        if (inner.isEmpty() || !node->children.empty())
            parent.children.push_back(std::move(node));
    }
}

QModelIndex PropertyTreeModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    return createIndex(row, column, nodeAt(parent).children[std::size_t(row)].get());
}

QModelIndex PropertyTreeModel::parent(const QModelIndex &index) const
{
    return index.isValid() ? indexOf(*nodeAt(index).parent) : QModelIndex();
}

int PropertyTreeModel::rowCount(const QModelIndex &parent) const
{
    return int(nodeAt(parent).children.size());
}

int PropertyTreeModel::columnCount(const QModelIndex &) const
{
    return 1;
}

QVariant PropertyTreeModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const Node &node = nodeAt(index);
    const auto *description = node.description();
    switch (role) {
    case Qt::DisplayRole:
        return description ? description->label() : node.properties.first()->key();
    case Qt::ToolTipRole:
        return description ? description->text() : QString();
    case DescriptionRole:
        return QVariant::fromValue(description);
    case ValueRole:
        return commonValue(node.properties).value;
    case MixedRole:
        return commonValue(node.properties).isMixed;
    case ChoicesRole:
        return choicesOf(*node.properties.first());
    case TroubleRole:
        return node.trouble;
    default:
        return {};
    }
}

Qt::ItemFlags PropertyTreeModel::flags(const QModelIndex &index) const
{
    const bool isEditable = index.isValid() && nodeAt(index).description();
    return QAbstractItemModel::flags(index) | (isEditable ? Qt::ItemIsEditable : Qt::NoItemFlags);
}

bool PropertyTreeModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != ValueRole || !flags(index).testFlag(Qt::ItemIsEditable))
        return false;
    const Node &node = nodeAt(index);
    if (std::exchange(m_edited, &node) != &node)
        m_edit.finish();
    const auto properties = node.properties;
    const QString undoText = tr("change %1").arg(node.description()->label());
    QString trouble;
    // Who hears of the change may set other structs.
    const QPersistentModelIndex row(index);
    try {
        m_edit.change(properties.first()->undoStack(), undoText, properties, [&] {
            setCommonValue(properties, value, undoText);
        });
    } catch (const Error &error) {
        trouble = error.message();
    }
    if (!row.isValid())
        return trouble.isEmpty();
    nodeAt(row).trouble = trouble;
    Q_EMIT dataChanged(row, row);
    return trouble.isEmpty();
}

bool PropertyTreeModel::submit()
{
    m_edited = nullptr;
    m_edit.finish();
    return true;
}

void PropertyTreeModel::revert()
{
    m_edited = nullptr;
    m_edit.cancel();
}

PropertyTreeModel::Node &PropertyTreeModel::nodeAt(const QModelIndex &index) const
{
    return index.isValid() ? *static_cast<Node *>(index.internalPointer()) : *m_root;
}

QModelIndex PropertyTreeModel::indexOf(const Node &node) const
{
    if (!node.parent)
        return {};
    const auto &siblings = node.parent->children;
    const auto found = std::find_if(siblings.begin(), siblings.end(), [&node](const auto &each) {
        return each.get() == &node;
    });
    return createIndex(int(found - siblings.begin()), 0, const_cast<Node *>(&node));
}

void PropertyTreeModel::refresh(const Node &node)
{
    const QModelIndex index = indexOf(node);
    Q_EMIT dataChanged(index, index);
}
