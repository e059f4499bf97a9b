#pragma once

#include <QByteArray>
#include <QString>

#include <exception>

/// A refused operation of the document, with a translated message for the user. What throws it has
/// changed nothing.
class Error : public std::exception
{
public:
    explicit Error(const QString &message);

    const QString &message() const { return m_message; }
    const char *what() const noexcept override { return m_utf8.constData(); }

private:
    QString m_message;
    QByteArray m_utf8;
};

class ErrorAlreadyExists : public Error
{
public:
    using Error::Error;
};

class ErrorDoesNotExist : public Error
{
public:
    using Error::Error;
};

class ErrorTypeConflict : public Error
{
public:
    using Error::Error;
};
