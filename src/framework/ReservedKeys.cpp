#include "framework/ReservedKeys.h"

#include <QCoreApplication>
#include <QKeySequence>

#include <algorithm>

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ReservedKeys)
};

struct Reserved
{
    Qt::Key key;
    const char *use;
};
constexpr Reserved reserved[] = {
    {Qt::Key_Escape, QT_TRANSLATE_NOOP("ReservedKeys", "%1 takes back what was begun.")},
    {Qt::Key_Return, QT_TRANSLATE_NOOP("ReservedKeys", "%1 keeps what was entered.")},
    {Qt::Key_Enter, QT_TRANSLATE_NOOP("ReservedKeys", "%1 keeps what was entered.")},
    {Qt::Key_Tab, QT_TRANSLATE_NOOP("ReservedKeys", "%1 goes from field to field.")},
    {Qt::Key_Backtab, QT_TRANSLATE_NOOP("ReservedKeys", "%1 goes from field to field.")},
    {Qt::Key_Space, QT_TRANSLATE_NOOP("ReservedKeys", "%1 pans the view and presses buttons.")}};

// Undo, Redo, Select all and Delete are commands of the window as well as of a field.
constexpr QKeySequence::StandardKey editing[] = {QKeySequence::Copy,
                                                 QKeySequence::Cut,
                                                 QKeySequence::Paste,
                                                 QKeySequence::Backspace,
                                                 QKeySequence::DeleteStartOfWord,
                                                 QKeySequence::DeleteEndOfWord,
                                                 QKeySequence::MoveToNextChar,
                                                 QKeySequence::MoveToPreviousChar,
                                                 QKeySequence::MoveToNextWord,
                                                 QKeySequence::MoveToPreviousWord,
                                                 QKeySequence::MoveToNextLine,
                                                 QKeySequence::MoveToPreviousLine,
                                                 QKeySequence::MoveToNextPage,
                                                 QKeySequence::MoveToPreviousPage,
                                                 QKeySequence::MoveToStartOfLine,
                                                 QKeySequence::MoveToEndOfLine,
                                                 QKeySequence::MoveToStartOfDocument,
                                                 QKeySequence::MoveToEndOfDocument,
                                                 QKeySequence::SelectNextChar,
                                                 QKeySequence::SelectPreviousChar,
                                                 QKeySequence::SelectNextWord,
                                                 QKeySequence::SelectPreviousWord,
                                                 QKeySequence::SelectNextLine,
                                                 QKeySequence::SelectPreviousLine,
                                                 QKeySequence::SelectNextPage,
                                                 QKeySequence::SelectPreviousPage,
                                                 QKeySequence::SelectStartOfLine,
                                                 QKeySequence::SelectEndOfLine,
                                                 QKeySequence::SelectStartOfDocument,
                                                 QKeySequence::SelectEndOfDocument};

} // namespace

QString reservedFor(const QKeySequence &keys)
{
    const QString name = keys.toString(QKeySequence::NativeText);
    const QString text = keys.toString(QKeySequence::PortableText);
    for (const Reserved &each : reserved) {
        const QString plain = QKeySequence(each.key).toString(QKeySequence::PortableText);
        const QString shifted = QStringLiteral("Shift+") + plain;
        if (text == plain || text == shifted)
            return Words::tr(each.use).arg(name);
    }
    const bool edits = std::any_of(
        std::begin(editing), std::end(editing), [&keys](QKeySequence::StandardKey standard) {
            return QKeySequence::keyBindings(standard).contains(keys);
        });
    return edits ? Words::tr("%1 belongs to the fields in which text is edited.").arg(name)
                 : QString();
}
