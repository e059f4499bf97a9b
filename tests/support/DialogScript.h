#pragma once

#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>

#include <deque>
#include <functional>

class QMessageBox;
class QWidget;

/// Answers the modal dialogs that come up while it lives, in the order that the test expects; one
/// that is not expected is closed and remembered.
class DialogScript : public QObject
{
public:
    using Answer = std::function<void(QWidget &dialog)>;

    DialogScript();
    DialogScript &then(Answer answer);

    /// Clicks the button whose text starts with @p text, mnemonics aside.
    static Answer click(const QString &text);
    /// Types @p path into a file dialog and accepts it.
    static Answer chooseFile(const QString &path);

    /// Title, text and informative text of each dialog that came up, joined by "|".
    const QStringList &seen() const { return m_seen; }
    /// True when every answer was given and nothing else asked.
    bool isDone() const { return m_answers.empty() && m_unexpected == 0; }

private:
    void look();

    QTimer m_timer;
    QPointer<QWidget> m_answered;
    std::deque<Answer> m_answers;
    QStringList m_seen;
    int m_unexpected = 0;
};
