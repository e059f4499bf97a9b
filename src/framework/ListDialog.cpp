#include "framework/ListDialog.h"

#include "base/PlainText.h"
#include "framework/PanelLabels.h"
#include "framework/UiScale.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

ListDialog::ListDialog(const Content &content, QWidget *parent)
    : QDialog(parent)
{
    setWindowTitle(content.title);
    auto *text = new QLabel(content.text, this);
    text->setWordWrap(true);
    auto *list = new QListWidget(this);
    for (const QString &entry : content.entries)
        list->addItem(shownLines(entry));
    list->setAccessibleName(content.text);
    list->setWordWrap(true);
    auto *buttons = new QDialogButtonBox(this);
    for (int i = 0; i < content.buttons.size(); ++i) {
        auto *button = buttons->addButton(content.buttons[i], QDialogButtonBox::ActionRole);
        button->setDefault(i == 0);
        connect(button, &QPushButton::clicked, this, [this, i] {
            m_chosen = i;
            accept();
        });
    }
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(scaled(12), scaled(12), scaled(12), scaled(12));
    layout->setSpacing(scaled(8));
    layout->addWidget(text);
    layout->addWidget(list, 1);
    layout->addWidget(buttons);
    resize(scaled(520), scaled(320));
}

void ListDialog::addBelowList(QWidget &widget, const QString &explanation)
{
    constexpr int belowList = 2;
    auto *row = new QHBoxLayout;
    row->setSpacing(scaled(12));
    row->addWidget(&widget);
    row->addWidget(createQuietText(explanation, this), 1);
    static_cast<QVBoxLayout *>(layout())->insertLayout(belowList, row);
    // For the keyboard, too.
    QWidget *last = findChild<QListWidget *>();
    for (QWidget *child : widget.findChildren<QWidget *>()) {
        setTabOrder(last, child);
        last = child;
    }
}

int ListDialog::choose()
{
    m_chosen = -1;
    exec();
    return m_chosen;
}
