#include "ui/properties/PropertyEditorFactory.h"

#include "base/PlainText.h"
#include "framework/ControlSizes.h"
#include "framework/EditorKeys.h"
#include "framework/GColorButton.h"
#include "framework/GDoubleEdit.h"
#include "framework/GIntEdit.h"
#include "framework/GLineEdit.h"
#include "framework/GPathEdit.h"
#include "framework/MixedText.h"
#include "framework/UiScale.h"
#include "model/properties/PropertyDescriptionTypes.h"
#include "ui/properties/PropertyEditor.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>

#include <array>
#include <limits>

namespace {
/// Sends a value that is no step of a longer edit.
void sendWhole(PropertyEditor &editor, const QVariant &value)
{
    Q_EMIT editor.edited(value);
    Q_EMIT editor.finished();
}

/// Enter and Escape give the focus up; what such a control changes counts at once.
void watchKeys(QWidget &control)
{
    auto *keys = new EditorKeys(
        control, [] {}, [] { return false; }, &control);
    keys->watch(control);
}

int decimalsFor(double extent)
{
    constexpr double wide = 100;
    constexpr double narrow = 1;
    if (extent >= wide)
        return 1;
    return extent > narrow ? 2 : 3;
}

/// A slider helps only where both ends are known.
template <class T>
bool isBounded(const PropertyDescriptionNumber<T> &description)
{
    const bool hasMinimum =
        std::is_unsigned_v<T> || description.minimum() > std::numeric_limits<T>::lowest();
    return hasMinimum && description.maximum() < std::numeric_limits<T>::max();
}

template <class T, class Edit>
void addNumber(PropertyEditor &editor, Edit &edit, const PropertyDescriptionNumber<T> &description)
{
    edit.setRange(description.minimum(), description.maximum());
    edit.setSliderVisible(isBounded(description));
    edit.setLabel(description.label());
    if (!description.unit().isEmpty())
        edit.setSuffix(QLatin1Char(' ') + description.unit());
    editor.add(edit, 1);
    editor.setShow([&edit](const PropertyEditor::Shown &shown) {
        edit.setValue(shown.value.value<T>());
        edit.setMixed(shown.isMixed);
    });
    QObject::connect(&edit, &Edit::valueChanged, &editor, [&editor](auto value) {
        Q_EMIT editor.edited(QVariant::fromValue(static_cast<T>(value)));
    });
    QObject::connect(&edit, &Edit::editingFinished, &editor, &PropertyEditor::finished);
    QObject::connect(&edit, &Edit::editingCancelled, &editor, &PropertyEditor::cancelled);
}
} // namespace

PropertyEditor *PropertyEditorFactory::make(const PropertyDescription &description, QWidget *parent)
{
    auto *editor = new PropertyEditor(parent);
    editor->setToolTip(description.text());
    PropertyEditorFactory factory(*editor);
    description.accept(factory);
    return editor;
}

void PropertyEditorFactory::visit(const PropertyDescriptionInt &description)
{
    addNumber(m_editor, *new GIntEdit(&m_editor), description);
}

void PropertyEditorFactory::visit(const PropertyDescriptionUnsignedInt &description)
{
    auto *edit = new GDoubleEdit(&m_editor);
    edit->setDecimals(0);
    addNumber(m_editor, *edit, description);
}

void PropertyEditorFactory::visit(const PropertyDescriptionDouble &description)
{
    constexpr int decimalsOfAnyNumber = 3;
    auto *edit = new GDoubleEdit(&m_editor);
    edit->setDecimals(isBounded(description)
                          ? decimalsFor(description.maximum() - description.minimum())
                          : decimalsOfAnyNumber);
    addNumber(m_editor, *edit, description);
}

void PropertyEditorFactory::visit(const PropertyDescriptionBool &description)
{
    auto *box = new QCheckBox(&m_editor);
    box->setFixedHeight(scaled(controlHeight));
    box->setAccessibleName(description.label());
    watchKeys(*box);
    m_editor.add(*box, 1);
    m_editor.setShow([box](const PropertyEditor::Shown &shown) {
        const Qt::CheckState whole = shown.value.toBool() ? Qt::Checked : Qt::Unchecked;
        box->setTristate(shown.isMixed);
        box->setCheckState(shown.isMixed ? Qt::PartiallyChecked : whole);
    });
    QObject::connect(box, &QCheckBox::clicked, &m_editor, [&editor = m_editor](bool isChecked) {
        sendWhole(editor, isChecked);
    });
}

void PropertyEditorFactory::visit(const PropertyDescriptionString &description)
{
    auto *line = new GLineEdit(&m_editor);
    line->setAccessibleName(description.label());
    m_editor.add(*line, 1);
    m_editor.setShow([line](const PropertyEditor::Shown &shown) {
        line->showText(shown.value.toString());
        line->setMixed(shown.isMixed);
    });
    QObject::connect(line, &GLineEdit::committed, &m_editor, [&editor = m_editor](auto &text) {
        sendWhole(editor, plainText(text));
    });
}

void PropertyEditorFactory::visit(const PropertyDescriptionFilename &description)
{
    auto *edit = new GPathEdit(
        description.namesFolder() ? GPathEdit::Kind::Folder : GPathEdit::Kind::File, &m_editor);
    edit->setLabel(description.label());
    edit->setDialogTitle(description.label());
    m_editor.add(*edit, 1);
    m_editor.setShow([edit](const PropertyEditor::Shown &shown) {
        edit->setPath(shown.value.value<GFileName>().path());
        edit->setMixed(shown.isMixed);
    });
    QObject::connect(edit, &GPathEdit::pathChanged, &m_editor, [&editor = m_editor](auto &path) {
        sendWhole(editor, plainText(path));
    });
}

void PropertyEditorFactory::visit(const PropertyDescriptionColor &description)
{
    auto *name = new QLabel(&m_editor);
    name->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    name->setForegroundRole(QPalette::PlaceholderText);
    auto *button = new GColorButton(&m_editor);
    button->setLabel(description.label());
    button->setAlphaOffered(false); // a project's file keeps none
    button->setFixedWidth(scaled(valueColumnWidth));
    m_editor.add(*button, 0);
    m_editor.add(*name, 1);
    static_cast<QBoxLayout *>(m_editor.layout())->setDirection(QBoxLayout::RightToLeft);
    m_editor.setShow([button, name](const PropertyEditor::Shown &shown) {
        button->setColor(shown.value.value<QColor>());
        button->setMixed(shown.isMixed);
        name->setText(shown.isMixed ? QString() : button->color().name());
    });
    QObject::connect(button,
                     &GColorButton::colorChanged,
                     &m_editor,
                     [&editor = m_editor](auto &color) { Q_EMIT editor.edited(color); });
    QObject::connect(button, &GColorButton::editingFinished, &m_editor, &PropertyEditor::finished);
    QObject::connect(
        button, &GColorButton::editingCancelled, &m_editor, &PropertyEditor::cancelled);
}

void PropertyEditorFactory::visit(const PropertyDescriptionEnum &description)
{
    addChoice(description);
}

// Three numbers that change together.
void PropertyEditorFactory::visit(const PropertyDescriptionVector3D &description)
{
    constexpr double largest = 1e6;
    constexpr int decimals = 3;
    const QStringList names{QStringLiteral("X"), QStringLiteral("Y"), QStringLiteral("Z")};
    std::array<GDoubleEdit *, 3> edits{};
    for (int i = 0; i < 3; ++i) {
        edits[std::size_t(i)] = new GDoubleEdit(&m_editor);
        auto &edit = *edits[std::size_t(i)];
        edit.setDecimals(decimals);
        edit.setRange(-largest, largest);
        edit.setSliderVisible(false);
        edit.setLabel(description.label() + QLatin1Char(' ') + names[i]);
        m_editor.add(edit, 1);
    }
    m_editor.setShow([edits](const PropertyEditor::Shown &shown) {
        const auto vector = shown.value.value<QVector3D>();
        for (int i = 0; i < 3; ++i) {
            edits[std::size_t(i)]->setValue(double(vector[i]));
            edits[std::size_t(i)]->setMixed(shown.isMixed);
        }
    });
    const auto send = [edits, &editor = m_editor] {
        Q_EMIT editor.edited(QVector3D(
            float(edits[0]->value()), float(edits[1]->value()), float(edits[2]->value())));
    };
    for (auto *edit : edits) {
        QObject::connect(edit, &GDoubleEdit::valueChanged, &m_editor, send);
        QObject::connect(edit, &GNumberEdit::editingFinished, &m_editor, &PropertyEditor::finished);
        QObject::connect(
            edit, &GNumberEdit::editingCancelled, &m_editor, &PropertyEditor::cancelled);
    }
}

void PropertyEditorFactory::visit(const PropertyDescriptionReference &description)
{
    addChoice(description);
}

void PropertyEditorFactory::addChoice(const PropertyDescription &description)
{
    auto *box = new QComboBox(&m_editor);
    box->setFixedHeight(scaled(controlHeight));
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setAccessibleName(description.label());
    watchKeys(*box);
    m_editor.add(*box, 1);
    m_editor.setShow([box](const PropertyEditor::Shown &shown) {
        box->clear();
        box->addItems(shown.choices);
        // A preset of the reference's own is none of the choices and has no name.
        box->setPlaceholderText(mixedText());
        box->setCurrentIndex(shown.isMixed ? -1 : shown.choices.indexOf(shown.value.toString()));
    });
    QObject::connect(box,
                     qOverload<int>(&QComboBox::activated),
                     &m_editor,
                     [&editor = m_editor, box] { sendWhole(editor, box->currentText()); });
}
