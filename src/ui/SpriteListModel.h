#pragma once

#include "model/properties/ChangeManager.h"
#include "model/properties/Observer.h"
#include "model/properties/PropertyList.h"

#include <QAbstractListModel>
#include <QSize>

#include <vector>

class Body;
class Project;

/// The bodies of a project as rows: their names, which can be edited, and what is to be known of
/// their sprites. Keeps up with the document; the project is borrowed.
class SpriteListModel : public QAbstractListModel, public Observer
{
    Q_OBJECT

public:
    static constexpr int detailRole = Qt::UserRole;    ///< size and state, one line
    static constexpr int imageRole = Qt::UserRole + 1; ///< QImage, null when there is none
    static constexpr int statusIconRole =
        Qt::UserRole + 2; ///< resource path, empty without trouble

    using QAbstractListModel::QAbstractListModel;

    /// Shows the bodies of @p project, none for null.
    void setProject(Project *project);
    Body *body(const QModelIndex &index) const;
    /// Invalid when @p body is not in the list.
    QModelIndex indexOf(const Body *body) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    void observableChanged(Observable &observable) override;

Q_SIGNALS:
    // Around any change of the rows.
    void rowsAboutToChange();
    void rowsChanged();

private:
    struct Row
    {
        std::shared_ptr<Property> body; // kept until the row is gone
        Observation name;
        Observation sprite;
    };

    bool isInOrderOf(const PropertyList::Entries &entries) const;
    Row makeRow(const std::shared_ptr<Property> &entry);
    void removeMissing(const PropertyList::Entries &entries);
    void insertNew(const PropertyList::Entries &entries);
    void fill(const PropertyList::Entries &entries);
    void keepUp();

    Project *m_project = nullptr;
    Observation m_listObservation;
    std::vector<Row> m_rows;
};
