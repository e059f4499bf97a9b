#include "framework/GLineEdit.h"

#include "framework/ControlSizes.h"
#include "framework/MixedText.h"
#include "framework/UiScale.h"

GLineEdit::GLineEdit(QWidget *parent)
    : QLineEdit(parent)
{
    setFixedHeight(scaled(controlHeight));
    m_keys.watch(*this);
}

void GLineEdit::showText(const QString &text)
{
    if (text == m_committed && !m_isMixed)
        return;
    m_committed = text;
    m_isMixed = false;
    showCommitted();
}

void GLineEdit::setMixed(bool isMixed)
{
    if (isMixed == m_isMixed)
        return;
    m_isMixed = isMixed;
    showCommitted();
}

void GLineEdit::setEmptyText(const QString &text)
{
    m_emptyText = text;
    setMinimumWidth(fontMetrics().horizontalAdvance(text) + scaled(16));
    setPlaceholderText(m_isMixed ? mixedText() : m_emptyText);
}

void GLineEdit::commit(const QString &text)
{
    const bool isNews = m_isMixed || text != m_committed;
    m_committed = text;
    m_isMixed = false;
    showCommitted();
    if (isNews)
        Q_EMIT committed(text);
}

void GLineEdit::finish()
{
    if (isModified())
        commit(text());
}

bool GLineEdit::cancel()
{
    const bool wasTyped = isModified();
    showCommitted();
    return wasTyped;
}

void GLineEdit::showCommitted()
{
    setText(m_isMixed ? QString() : m_committed);
    setPlaceholderText(m_isMixed ? mixedText() : m_emptyText);
}
