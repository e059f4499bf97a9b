#pragma once

#include <QHash>
#include <QSslCertificate>
#include <QSslKey>
#include <QTcpServer>
#include <QUrl>

/// An HTTPS server at 127.0.0.1 whose certificate is made with it, by the program openssl.
class TlsServer : public QTcpServer
{
public:
    /// @p folder takes the certificate and its key.
    explicit TlsServer(const QString &folder);

    QUrl url(const QString &path) const;
    /// The one to be trusted.
    QSslCertificate certificate() const { return m_certificate; }

    /// What is sent for each path, header and all, before the connection is closed. A path without
    /// an answer is answered with nothing; an answer that ends with "..." goes on for ever.
    QHash<QString, QByteArray> answers;
    QList<QByteArray> requests;
    qint64 endlessBytes = 0;

protected:
    void incomingConnection(qintptr handle) override;

private:
    void answer(class QSslSocket &socket);

    QSslCertificate m_certificate;
    QSslKey m_key;
};
