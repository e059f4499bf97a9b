#pragma once

#include "framework/EditorKeys.h"

#include <QLineEdit>

/// A line of text that counts when the user has finished it: after Enter or when the focus leaves.
/// Escape brings the former text back; both keys give the focus back to the document.
class GLineEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit GLineEdit(QWidget *parent = nullptr);

    /// Shows @p text as what is there, without a signal. What the user is typing stays when it is
    /// the same text as before.
    void showText(const QString &text);
    /// Shows that several texts differ, until one is typed.
    void setMixed(bool isMixed);
    void setEmptyText(const QString &text);
    /// Takes @p text as if the user had typed and finished it.
    void commit(const QString &text);

Q_SIGNALS:
    void committed(const QString &text);

private:
    void finish();
    bool cancel();
    void showCommitted();

    QString m_committed;
    QString m_emptyText;
    bool m_isMixed = false;
    EditorKeys m_keys{*this, [this] { finish(); }, [this] { return cancel(); }};
};
