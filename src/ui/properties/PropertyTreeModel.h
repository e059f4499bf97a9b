#pragma once

#include "model/properties/PropertyDescription.h"
#include "ui/properties/ContinuousEdit.h"

#include <QAbstractItemModel>

#include <memory>

class PropertyStruct;

Q_DECLARE_METATYPE(const PropertyDescription *)

/// The described fields of several structs of one class as one tree: a row a field, a struct inside
/// them with its own fields below. It follows changes from elsewhere. The structs are borrowed.
class PropertyTreeModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Role {
        ValueRole = Qt::EditRole, ///< as PropertyValues.h has it
        MixedRole = Qt::UserRole, ///< true when the structs' values differ
        DescriptionRole,          ///< const PropertyDescription *, null for a struct
        ChoicesRole,              ///< the names among which the value is chosen
        TroubleRole,              ///< why the last value was refused, empty when it was not
    };

    explicit PropertyTreeModel(QObject *parent = nullptr);
    ~PropertyTreeModel() override;

    /// Rows for the fields whose keys, or those of the structs around them, contain @p keyPart.
    void setStructs(const QVector<PropertyStruct *> &structs, const QString &keyPart);

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    /// Sets the value on all structs. Changes of one row until submit() or revert() are one edit
    /// and one undo step.
    bool setData(const QModelIndex &index, const QVariant &value, int role = ValueRole) override;

public Q_SLOTS:
    /// The edit ends here.
    bool submit() override;
    /// The edit is taken back.
    void revert() override;

private:
    struct Node;

    static void
    addFields(Node &parent, const QVector<PropertyStruct *> &structs, const QString &keyPart);
    Node &nodeAt(const QModelIndex &index) const;
    QModelIndex indexOf(const Node &node) const;
    void refresh(const Node &node);

    std::unique_ptr<Node> m_root;
    ContinuousEdit m_edit;
    const Node *m_edited = nullptr; // compared only
};
