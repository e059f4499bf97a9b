#include "framework/UpdateChecker.h"

#include <QCoreApplication>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSslConfiguration>

namespace {
constexpr int maxRedirects = 3;

QNetworkRequest requestFor(const UpdateChecker::Source &source)
{
    QNetworkRequest request(source.feed);
    request.setHeader(QNetworkRequest::UserAgentHeader,
                      QStringLiteral("%1/%2").arg(QCoreApplication::applicationName(),
                                                  source.running.toString()));
    // Compressed, a small answer could become a huge one. The language is nobody's business.
    request.setRawHeader("Accept-Encoding", "identity");
    request.setRawHeader("Accept-Language", "*");
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(maxRedirects);
    for (const auto attribute : {QNetworkRequest::CookieLoadControlAttribute,
                                 QNetworkRequest::CookieSaveControlAttribute,
                                 QNetworkRequest::AuthenticationReuseAttribute})
        request.setAttribute(attribute, QNetworkRequest::Manual);

    QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
    tls.setProtocol(QSsl::TlsV1_2OrLater);
    tls.setPeerVerifyMode(QSslSocket::VerifyPeer);
    if (!source.authorities.isEmpty())
        tls.setCaCertificates(source.authorities);
    request.setSslConfiguration(tls);
    return request;
}

QString problemOf(const QNetworkReply &reply)
{
    const int status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    switch (reply.error()) {
    case QNetworkReply::NoError:
        return {};
    case QNetworkReply::HostNotFoundError:
        return UpdateChecker::tr("It can't be found. Is there a connection to the network?");
    case QNetworkReply::SslHandshakeFailedError:
        return UpdateChecker::tr("Its certificate is not to be trusted.");
    case QNetworkReply::InsecureRedirectError:
        return UpdateChecker::tr("It leads to an address that is not secure.");
    case QNetworkReply::TooManyRedirectsError:
        return UpdateChecker::tr("It leads from one address to the next.");
    default:
        break;
    }
    constexpr int firstFailure = 400;
    return status >= firstFailure ? UpdateChecker::tr("It answers with the status %1.").arg(status)
                                  : UpdateChecker::tr("It can't be reached.");
}
} // namespace

UpdateChecker::UpdateChecker(Source source, GSettings &settings, QObject *parent)
    : QObject(parent)
    , m_source(std::move(source))
    , m_settings(settings)
{
    m_deadline.setSingleShot(true);
    m_deadline.setInterval(m_source.timeout);
    connect(&m_deadline, &QTimer::timeout, this, [this] { refuse(tr("It does not answer.")); });
}

UpdateChecker::~UpdateChecker()
{
    if (m_reply)
        m_reply->disconnect(this);
}

void UpdateChecker::checkIfDue()
{
    if (m_settings.asksDaily() && m_settings.isDue(m_source.now()))
        check();
}

void UpdateChecker::check()
{
    if (m_reply)
        return;
    // Before the answer, so that one that never comes or ends the program is not asked for again.
    m_settings.setLastQuestion(m_source.now());
    m_bytes.clear();
    m_refusal.clear();
    if (!m_network)
        m_network = new QNetworkAccessManager(this);
    m_reply = m_network->get(requestFor(m_source));
    m_reply->setReadBufferSize(m_source.maxBytes);
    connect(m_reply, &QNetworkReply::readyRead, this, &UpdateChecker::receive);
    connect(m_reply, &QNetworkReply::finished, this, &UpdateChecker::finish);
    m_deadline.start();
}

void UpdateChecker::receive()
{
    m_bytes += m_reply->readAll();
    if (m_bytes.size() > m_source.maxBytes)
        refuse(tr("Its answer is too long."));
}

// The network access manager then tells that the reply has finished, as after every other error.
void UpdateChecker::refuse(const QString &problem)
{
    m_refusal = problem;
    m_reply->abort();
}

void UpdateChecker::finish()
{
    m_deadline.stop();
    QNetworkReply *reply = std::exchange(m_reply, nullptr);
    reply->deleteLater();
    Q_EMIT answered(evaluate(*reply));
}

UpdateAnswer UpdateChecker::evaluate(const QNetworkReply &reply) const
{
    const QString problem = m_refusal.isEmpty() ? problemOf(reply) : m_refusal;
    if (!problem.isEmpty())
        return {{}, problem};
    const auto releases = readUpdateFeed(m_bytes);
    if (!releases)
        return {{}, tr("Its answer can't be read.")};
    return {newerRelease(*releases, m_source.running, m_settings.wantsPreReleases()), {}};
}
