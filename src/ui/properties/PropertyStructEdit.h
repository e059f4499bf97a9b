#pragma once

#include <QPersistentModelIndex>
#include <QStringList>
#include <QVector>
#include <QWidget>

class PropertyEditor;
class PropertyStruct;
class PropertyTreeModel;
class QGridLayout;
class QLabel;

/// Editors for the described fields of structs of one class, one row a field: label left, editor
/// right. Several structs are edited at once; where their values differ the editor shows that, and
/// one edit is one undo step for all. The structs are borrowed; who removes one sets others first.
class PropertyStructEdit : public QWidget
{
    Q_OBJECT

public:
    explicit PropertyStructEdit(QWidget *parent = nullptr);
    ~PropertyStructEdit() override;

    /// Edits the fields of @p structs whose keys contain @p keyPart; fields of structs inside them
    /// too. Empty shows nothing.
    void setStructs(const QVector<PropertyStruct *> &structs, const QString &keyPart = QString());

Q_SIGNALS:
    /// The user has changed the field of this key.
    void edited(const QString &key);

private:
    struct Row
    {
        QPersistentModelIndex index;
        PropertyEditor *editor;
        QLabel *trouble;
    };

    void clear();
    void dropRows();
    void addRows(const QModelIndex &parent);
    void addRow(const QModelIndex &index);
    void refresh(const QModelIndex &index);
    void showRow(const Row &row) const;

    PropertyTreeModel *m_model;
    QVector<Row> m_rows;
    QWidget *m_content = nullptr;
    QGridLayout *m_grid = nullptr;
};
