#include "ui/properties/PropertyStructEdit.h"

#include "framework/ControlSizes.h"
#include "framework/UiScale.h"
#include "ui/properties/PropertyEditor.h"
#include "ui/properties/PropertyEditorFactory.h"
#include "ui/properties/PropertyTreeModel.h"

#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {
/// Lets @p widgets follow @p first in the tab order, where new widgets come last in the window. The
/// toolkit moves only what takes the focus itself, and loses its way among focus proxies; none of
/// them may have the focus.
void placeInTabOrder(QWidget *first, const QList<QWidget *> &widgets)
{
    const auto chain = QList<QWidget *>{first} + widgets;
    QVector<QPair<Qt::FocusPolicy, QWidget *>> kept;
    for (QWidget *widget : chain) {
        kept.append({widget->focusPolicy(), widget->focusProxy()});
        widget->setFocusProxy(nullptr);
    }
    for (QWidget *widget : chain)
        widget->setFocusPolicy(Qt::TabFocus);
    for (int i = 0; i + 1 < chain.size(); ++i)
        QWidget::setTabOrder(chain[i], chain[i + 1]);
    for (int i = 0; i < chain.size(); ++i)
        chain[i]->setFocusPolicy(kept[i].first);
    for (int i = 0; i < chain.size(); ++i)
        chain[i]->setFocusProxy(kept[i].second);
}
} // namespace

PropertyStructEdit::PropertyStructEdit(QWidget *parent)
    : QWidget(parent)
    , m_model(new PropertyTreeModel(this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    connect(m_model, &QAbstractItemModel::dataChanged, this, &PropertyStructEdit::refresh);
}

PropertyStructEdit::~PropertyStructEdit()
{
    dropRows();
}

void PropertyStructEdit::setStructs(const QVector<PropertyStruct *> &structs,
                                    const QString &keyPart)
{
    clear();
    m_model->setStructs(structs, keyPart);
    addRows({});
    placeInTabOrder(this, m_content->findChildren<QWidget *>());
    m_content->show();
}

// The rows may be at work up the stack, and must not send any more once they lose the focus.
void PropertyStructEdit::clear()
{
    dropRows();
    if (m_content) {
        m_content->hide();
        m_content->deleteLater();
    }
    m_content = new QWidget(this);
    m_grid = new QGridLayout(m_content);
    m_grid->setContentsMargins(0, 0, 0, 0);
    m_grid->setSpacing(scaled(controlSpacing));
    m_grid->setColumnMinimumWidth(0, scaled(labelColumnWidth));
    m_grid->setColumnStretch(1, 1);
    layout()->addWidget(m_content);
}

// An editor with the focus ends its edit when it is hidden, which is no edit of what comes next.
void PropertyStructEdit::dropRows()
{
    for (const Row &row : std::as_const(m_rows)) {
        row.editor->disconnect(this);
        row.editor->disconnect(m_model);
    }
    m_rows.clear();
}

void PropertyStructEdit::addRows(const QModelIndex &parent)
{
    for (int i = 0; i < m_model->rowCount(parent); ++i) {
        const QModelIndex index = m_model->index(i, 0, parent);
        if (m_model->hasChildren(index))
            addRows(index);
        else
            addRow(index);
    }
}

void PropertyStructEdit::addRow(const QModelIndex &index)
{
    const auto *description =
        index.data(PropertyTreeModel::DescriptionRole).value<const PropertyDescription *>();
    auto *editor = PropertyEditorFactory::make(*description, m_content);
    auto *label = new QLabel(index.data().toString(), m_content);
    label->setToolTip(index.data(Qt::ToolTipRole).toString());
    label->setFixedHeight(scaled(controlHeight));
    label->setBuddy(editor);
    auto *trouble = new QLabel(m_content);
    trouble->setWordWrap(true);
    trouble->setForegroundRole(QPalette::BrightText);
    trouble->hide();

    const int line = m_rows.size();
    m_grid->addWidget(label, line, 0, Qt::AlignTop);
    auto *right = new QVBoxLayout;
    right->setSpacing(scaled(controlSpacing) / 2);
    right->addWidget(editor);
    right->addWidget(trouble);
    m_grid->addLayout(right, line, 1);

    const Row row{index, editor, trouble};
    const QString key = description->key();
    connect(editor, &PropertyEditor::edited, this, [this, row, key](const QVariant &value) {
        if (m_model->setData(row.index, value))
            Q_EMIT edited(key);
    });
    connect(editor, &PropertyEditor::finished, m_model, &PropertyTreeModel::submit);
    connect(editor, &PropertyEditor::cancelled, m_model, &PropertyTreeModel::revert);
    m_rows.append(row);
    showRow(row);
}

void PropertyStructEdit::refresh(const QModelIndex &index)
{
    for (const Row &row : std::as_const(m_rows)) {
        if (row.index == index)
            showRow(row);
    }
}

void PropertyStructEdit::showRow(const Row &row) const
{
    row.editor->showValue({row.index.data(PropertyTreeModel::ValueRole),
                           row.index.data(PropertyTreeModel::MixedRole).toBool(),
                           row.index.data(PropertyTreeModel::ChoicesRole).toStringList()});
    const QString trouble = row.index.data(PropertyTreeModel::TroubleRole).toString();
    row.trouble->setText(trouble);
    row.trouble->setVisible(!trouble.isEmpty());
}
