#include "support/TlsServer.h"

#include "support/Documents.h"

#include <QDir>
#include <QProcess>
#include <QSslSocket>

TlsServer::TlsServer(const QString &folder)
{
    const QString certificate = QDir(folder).filePath(QStringLiteral("certificate.pem"));
    const QString key = QDir(folder).filePath(QStringLiteral("key.pem"));
    const QString words = QStringLiteral(
        "req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -days 2 "
        "-subj /CN=vesperine-test -addext subjectAltName=IP:127.0.0.1 -out %1 -keyout %2");
    QProcess openssl;
    openssl.start(QStringLiteral("openssl"), words.arg(certificate, key).split(QLatin1Char(' ')));
    if (!openssl.waitForFinished() || openssl.exitCode() != 0)
        qFatal("openssl makes no certificate: %s", openssl.readAllStandardError().constData());
    m_certificate = QSslCertificate(contentOf(certificate));
    m_key = QSslKey(contentOf(key), QSsl::Ec);
    if (m_certificate.isNull() || m_key.isNull() || !listen(QHostAddress::LocalHost))
        qFatal("The server does not start");
}

QUrl TlsServer::url(const QString &path) const
{
    return QStringLiteral("https://127.0.0.1:%1%2").arg(serverPort()).arg(path);
}

void TlsServer::incomingConnection(qintptr handle)
{
    auto *socket = new QSslSocket(this);
    socket->setSocketDescriptor(handle);
    socket->setLocalCertificate(m_certificate);
    socket->setPrivateKey(m_key);
    connect(socket, &QSslSocket::readyRead, this, [this, socket] { answer(*socket); });
    connect(socket, &QSslSocket::disconnected, socket, &QObject::deleteLater);
    socket->startServerEncryption();
}

void TlsServer::answer(QSslSocket &socket)
{
    const QByteArray request = socket.readAll();
    requests.append(request);
    const QString path = QString::fromLatin1(request.split(' ').value(1));
    if (!answers.contains(path))
        return;
    const QByteArray bytes = answers.value(path);
    socket.write(bytes);
    if (!bytes.endsWith("...")) {
        socket.disconnectFromHost();
        return;
    }
    connect(&socket, &QSslSocket::encryptedBytesWritten, this, [this, &socket](qint64 written) {
        endlessBytes += written;
        if (socket.encryptedBytesToWrite() == 0)
            socket.write(QByteArray(16384, ' '));
    });
}
