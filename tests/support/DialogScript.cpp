#include "support/DialogScript.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QProgressDialog>
#include <QTest>

namespace {
QString describe(QWidget &dialog)
{
    if (const auto *box = qobject_cast<QMessageBox *>(&dialog))
        return box->windowTitle() + QLatin1Char('|') + box->text() + QLatin1Char('|') +
               box->informativeText();
    return dialog.windowTitle();
}
} // namespace

DialogScript::DialogScript()
{
    connect(&m_timer, &QTimer::timeout, this, &DialogScript::look);
    m_timer.start(5);
}

DialogScript &DialogScript::then(Answer answer)
{
    m_answers.push_back(std::move(answer));
    return *this;
}

DialogScript::Answer DialogScript::click(const QString &text)
{
    return [text](QWidget &dialog) {
        const auto buttons = dialog.findChildren<QAbstractButton *>();
        for (QAbstractButton *button : buttons) {
            if (button->isVisible() && button->text().remove(QLatin1Char('&')).startsWith(text)) {
                QTest::mouseClick(button, Qt::LeftButton);
                return;
            }
        }
        qWarning("No button '%s' in '%s'", qPrintable(text), qPrintable(describe(dialog)));
        dialog.close();
    };
}

DialogScript::Answer DialogScript::chooseFile(const QString &path)
{
    return [path](QWidget &dialog) {
        auto *name = dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        if (!name) {
            qWarning("'%s' is no file dialog", qPrintable(describe(dialog)));
            dialog.close();
            return;
        }
        name->setText(path);
        QMetaObject::invokeMethod(&dialog, "accept");
    };
}

// A dialog is answered once it is shown; its answer may open the next one.
void DialogScript::look()
{
    QWidget *dialog = QApplication::activeModalWidget();
    if (!dialog)
        m_answered.clear();
    if (!dialog || dialog == m_answered || !dialog->isVisible() ||
        qobject_cast<QProgressDialog *>(dialog))
        return;
    m_answered = dialog;
    m_seen.append(describe(*dialog));
    if (m_answers.empty()) {
        ++m_unexpected;
        qWarning("Unexpected dialog: %s", qPrintable(m_seen.last()));
        dialog->close();
        return;
    }
    const Answer answer = std::move(m_answers.front());
    m_answers.pop_front();
    answer(*dialog);
}
