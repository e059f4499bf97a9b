#pragma once

#include "model/properties/GUndoStack.h"
#include "model/properties/Property.h"
#include "model/properties/UndoValues.h"

#include <QUndoCommand>

#include <cstdint>
#include <type_traits>

/// The one undo step for all changes: an object, the member operation that sets a value on it, and
/// the value before and after. The object is not owned and outlives the step.
///
/// A mergeable step absorbs the next one of the same object and setter when that begins with the
/// value with which this one ends. Large values are packed as soon as nothing is to be absorbed.
template <class Object, class Setter, class Value>
class GenericUndoCommand : public QUndoCommand, public UndoStep
{
public:
    GenericUndoCommand(Object &object,
                       Setter setter,
                       const Value &oldValue,
                       const Value &newValue,
                       const QString &text,
                       bool mergeable,
                       QUndoCommand *parent = nullptr)
        : QUndoCommand(text, parent)
        , m_object(object)
        , m_setter(setter)
        , m_values(oldValue, newValue)
        , m_mergeId(mergeable ? mergeIdOf(&object) : -1)
    {
    }

    void undo() override { (m_object.*m_setter)(m_values.before(m_object)); }
    void redo() override
    {
        (m_object.*m_setter)(m_values.after(m_object));
        if (m_mergeId == -1)
            m_values.pack();
    }
    int id() const override { return m_mergeId; }
    bool changesDocument() const override { return std::is_base_of_v<Property, Object>; }

    bool mergeWith(const QUndoCommand *other) override
    {
        const auto *next = dynamic_cast<const GenericUndoCommand *>(other);
        if (!next || &next->m_object != &m_object || next->m_setter != m_setter ||
            !m_values.takeUp(next->m_values))
            return false;
        setText(next->text());
        setObsolete(m_values.isUnchanged()); // the stack drops a gesture that led back
        return true;
    }

    void rest() override { m_values.pack(); }
    void close() override
    {
        m_mergeId = -1;
        m_values.pack();
    }

private:
    static int mergeIdOf(const Object *object)
    {
        const auto address = reinterpret_cast<std::uintptr_t>(object);
        return static_cast<int>(
            static_cast<std::uint32_t>((std::uint64_t(address) >> 31U) ^ std::uint64_t(address)));
    }

    Object &m_object;
    Setter m_setter;
    UndoValues<Value> m_values;
    int m_mergeId;
};

/// Pushes a step that sets @p newValue on @p object through @p setter, which runs it once. The old
/// value is the object's own, not a copy.
template <class Object, class Setter, class Value>
void pushUndoStep(GUndoStack &stack,
                  Object &object,
                  Setter setter,
                  const Value &oldValue,
                  const Value &newValue,
                  const QString &text,
                  bool mergeable)
{
    stack.announcePush(); // before the old value is read, which may change by it
    stack.push(std::make_unique<GenericUndoCommand<Object, Setter, Value>>(
        object, setter, oldValue, newValue, text, mergeable));
}
