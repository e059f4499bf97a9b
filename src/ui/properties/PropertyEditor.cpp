#include "ui/properties/PropertyEditor.h"

#include "framework/ControlSizes.h"
#include "framework/UiScale.h"

#include <QHBoxLayout>
#include <QSignalBlocker>

#include <vector>

PropertyEditor::PropertyEditor(QWidget *parent)
    : QWidget(parent)
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(scaled(controlSpacing));
}

// A control that has the focus ends its edit as it goes, when nobody is left to take it.
PropertyEditor::~PropertyEditor()
{
    const auto children = findChildren<QObject *>();
    for (QObject *child : children)
        child->disconnect(this);
}

void PropertyEditor::add(QWidget &control, int stretch)
{
    static_cast<QHBoxLayout *>(layout())->addWidget(&control, stretch);
    if (m_controls.isEmpty())
        setFocusProxy(&control);
    m_controls.append(&control);
}

void PropertyEditor::setShow(Show show)
{
    m_show = std::move(show);
}

void PropertyEditor::showValue(const Shown &shown)
{
    std::vector<QSignalBlocker> quiet;
    for (auto *control : std::as_const(m_controls))
        quiet.emplace_back(control);
    m_show(shown);
}
