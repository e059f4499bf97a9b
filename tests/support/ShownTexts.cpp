#include "support/ShownTexts.h"

#include "support/PseudoLocale.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QRegularExpression>
#include <QSet>
#include <QSpinBox>
#include <QToolButton>
#include <QTreeWidget>

namespace {

// Where it stands, for the message of a failure.
QString placeOf(const QObject &object)
{
    const auto *widget = qobject_cast<const QWidget *>(&object);
    const QString window = widget ? widget->window()->windowTitle() : QString();
    return QStringLiteral("%1 '%2' in '%3'")
        .arg(QLatin1String(object.metaObject()->className()), object.objectName(), window);
}

// What the user has typed or chosen is no text of the program.
bool holdsContent(const QObject &object)
{
    return qobject_cast<const QLineEdit *>(&object) || qobject_cast<const QComboBox *>(&object) ||
           qobject_cast<const QAbstractSpinBox *>(&object);
}

void addItems(const QAbstractItemModel &model, const QModelIndex &parent, QStringList &texts)
{
    for (int row = 0; row < model.rowCount(parent); ++row) {
        for (int column = 0; column < model.columnCount(parent); ++column) {
            const QModelIndex index = model.index(row, column, parent);
            for (const int role : {Qt::DisplayRole, Qt::ToolTipRole})
                texts.append(index.data(role).toString());
        }
        addItems(model, model.index(row, 0, parent), texts);
    }
}

QStringList textsOf(const QObject &object)
{
    QStringList texts;
    for (const char *name : {"title",
                             "windowTitle",
                             "toolTip",
                             "statusTip",
                             "whatsThis",
                             "accessibleName",
                             "accessibleDescription",
                             "placeholderText",
                             "prefix",
                             "suffix",
                             "specialValueText",
                             "iconText"})
        texts.append(object.property(name).toString());
    if (!holdsContent(object))
        texts.append(object.property("text").toString());
    // Other models are those of the user's sprites and files.
    const auto *box = qobject_cast<const QComboBox *>(&object);
    const auto *tree = qobject_cast<const QTreeWidget *>(&object);
    const auto *list = qobject_cast<const QListWidget *>(&object);
    const QAbstractItemModel *model = box ? box->model() : tree ? tree->model() : nullptr;
    model = list ? list->model() : model;
    if (model)
        addItems(*model, {}, texts);
    if (const auto *header = qobject_cast<const QHeaderView *>(&object);
        header && header->model()) {
        for (int i = 0; i < header->count() && header->orientation() == Qt::Horizontal; ++i)
            texts.append(header->model()->headerData(i, Qt::Horizontal).toString());
    }
    return texts;
}

bool isUntranslated(const QString &text)
{
    // Files, and names that are the same everywhere.
    static const QRegularExpression tag(QStringLiteral("<[^>]*>"));
    static const QRegularExpression exempt(
        QStringLiteral("(?<!\\S)[~/]\\S*|\\S+\\.(png|jpe?g|ve[px])\\b|#\\w{6}|\\[\\*\\]|"
                       "\\b(Vesperine|English|Deutsch|F[0-9]+)\\b"));
    static const QRegularExpression word(QStringLiteral("\\p{L}{2,}"));
    // What the system tells of itself.
    if (text.startsWith(QGuiApplication::applicationDisplayName() + QStringLiteral(": ")))
        return false;
    return PseudoLocale::withoutMarked(text).remove(tag).remove(exempt).contains(word);
}

QList<QObject *> objectsWithTexts()
{
    QList<QObject *> objects;
    for (QWidget *widget : QApplication::allWidgets()) {
        // The user's files and places, and what the toolkit makes of them.
        const bool isPlace = widget->objectName() == QLatin1String("lookInCombo");
        if (!isPlace)
            objects.append(widget);
        for (QAction *action :
             widget->findChildren<QAction *>(QString(), Qt::FindDirectChildrenOnly))
            objects.append(action);
    }
    return objects;
}

bool isFixed(const QWidget &widget)
{
    return widget.minimumWidth() == widget.maximumWidth();
}

int widthOfText(const QWidget &widget, const QString &text)
{
    return widget.fontMetrics().size(Qt::TextShowMnemonic, text).width();
}

// How many pixels are missing, where that can be told.
int missingWidth(const QWidget &widget)
{
    if (const auto *label = qobject_cast<const QLabel *>(&widget)) {
        if (label->text().isEmpty())
            return 0;
        return label->wordWrap() ? label->heightForWidth(label->width()) - label->height()
                                 : label->sizeHint().width() - label->width();
    }
    // Names of files, which may be long, don't widen a box.
    if (const auto *box = qobject_cast<const QComboBox *>(&widget);
        box && box->sizeAdjustPolicy() != QComboBox::AdjustToMinimumContentsLengthWithIcon)
        return box->sizeHint().width() - box->width();
    if (const auto *button = qobject_cast<const QAbstractButton *>(&widget)) {
        const auto *tool = qobject_cast<const QToolButton *>(button);
        const bool isSeen =
            !tool || tool->icon().isNull() || tool->toolButtonStyle() != Qt::ToolButtonIconOnly;
        if (!isSeen || button->text().isEmpty())
            return 0;
        // A push button may be narrower than its hint and still have room for its text.
        return isFixed(*button) ? widthOfText(*button, button->text()) - button->width()
                                : button->sizeHint().width() - button->width();
    }
    if (const auto *line = qobject_cast<const QLineEdit *>(&widget))
        return widthOfText(*line, line->placeholderText()) - line->width();
    if (qobject_cast<const QAbstractSpinBox *>(&widget))
        return widget.minimumSizeHint().width() - widget.width();
    if (const auto *bar = qobject_cast<const QMenuBar *>(&widget))
        return bar->sizeHint().width() - bar->width();
    return 0;
}

// How many pixels lie beyond the sides of what holds it.
int widthOutside(const QWidget &widget)
{
    int outside = 0;
    for (const QWidget *above = widget.parentWidget(); above && !widget.isWindow();
         above = above->isWindow() ? nullptr : above->parentWidget()) {
        const int left = widget.mapTo(above, QPoint()).x();
        outside = std::max({outside, -left, left + widget.width() - above->width()});
    }
    return outside;
}

} // namespace

QStringList untranslatedTexts()
{
    QStringList found;
    static QSet<QString> known;
    for (const QObject *object : objectsWithTexts()) {
        for (const QString &text : textsOf(*object)) {
            if (text.isEmpty() || known.contains(text))
                continue;
            known.insert(text);
            if (isUntranslated(text))
                found.append(
                    QStringLiteral("not translated: '%1', %2").arg(text, placeOf(*object)));
            else if (PseudoLocale::lacksGerman(text))
                found.append(QStringLiteral("no German: '%1', %2").arg(text, placeOf(*object)));
        }
    }
    return found;
}

QStringList clippedTexts(FixedSizes fixed)
{
    QStringList found;
    for (const QWidget *widget : QApplication::allWidgets()) {
        // The toolkit's own dialogs are laid out by it.
        const bool isOurs = !qobject_cast<QFileDialog *>(widget->window());
        if (!widget->isVisible() || !isOurs || (isFixed(*widget) && fixed == FixedSizes::Skipped))
            continue;
        const int missing = std::max(missingWidth(*widget), 0);
        const QString text = widget->property("text").toString();
        const int outside = text.isEmpty() ? 0 : widthOutside(*widget);
        if (missing > 0 || outside > 0)
            found.append(QStringLiteral("clipped by %1, outside by %2: '%3', %4")
                             .arg(missing)
                             .arg(outside)
                             .arg(text, placeOf(*widget)));
    }
    found.removeDuplicates();
    return found;
}
