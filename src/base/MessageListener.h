#pragma once

#include <QString>
#include <QStringList>

/// Hears what the toolkit says on this thread as long as this lives, where GLogger is installed.
/// Owned by a function that has no other way to learn of a warning.
class MessageListener
{
public:
    MessageListener();
    ~MessageListener();
    MessageListener(const MessageListener &) = delete;
    MessageListener &operator=(const MessageListener &) = delete;

    const QStringList &messages() const { return m_messages; }
    /// Hands @p message to the listener of this thread, if there is one.
    static void tell(const QString &message);

private:
    MessageListener *m_former;
    QStringList m_messages;
};
