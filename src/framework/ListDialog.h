#pragma once

#include <QDialog>
#include <QStringList>

/// A text, a list of what it speaks of, and buttons. The first button is the default one.
class ListDialog : public QDialog
{
    Q_OBJECT

public:
    struct Content
    {
        QString title;
        QString text;
        QStringList entries;
        QStringList buttons;
    };

    explicit ListDialog(const Content &content, QWidget *parent = nullptr);

    /// Shows the dialog and returns the index of the button, -1 when it was closed without one.
    int choose();
    /// Puts @p widget, which holds others, below the list, and beside it what it is about.
    void addBelowList(QWidget &widget, const QString &explanation);

private:
    int m_chosen = -1;
};
