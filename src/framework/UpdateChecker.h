#pragma once

#include "framework/UpdateFeed.h"
#include "framework/UpdateSettings.h"

#include <QDateTime>
#include <QObject>
#include <QPointer>
#include <QSslCertificate>
#include <QTimer>

#include <chrono>
#include <functional>

QT_BEGIN_NAMESPACE
class QNetworkAccessManager;
class QNetworkReply;
QT_END_NAMESPACE

/// What came of a question: a newer release, a problem, or neither.
struct UpdateAnswer
{
    std::optional<UpdateRelease> newer;
    QString problem; ///< a sentence in our own words, none of the server's
};

/// Asks the feed of releases whether there is a newer one: over HTTPS only, at most one question at
/// a time, and nothing goes along but the program's name and version. Before the first question
/// nothing of the network is touched.
class UpdateChecker : public QObject
{
    Q_OBJECT

public:
    struct Source
    {
        QUrl feed;
        SemanticVersion running = runningVersion();
        QList<QSslCertificate> authorities = {}; ///< those that are trusted; empty: the system's
        std::chrono::milliseconds timeout = std::chrono::seconds(20); ///< for the whole answer
        int maxBytes = 256 * 1024;
        std::function<QDateTime()> now = &QDateTime::currentDateTimeUtc;
    };

    /// @p settings outlive the checker.
    UpdateChecker(Source source, GSettings &settings, QObject *parent = nullptr);
    ~UpdateChecker() override;

    QString host() const { return m_source.feed.host(); }
    /// Asks, because the user wishes it now; answered() follows, later.
    void check();
    /// Asks if the user has agreed and the last question, answered or not, is a day old.
    void checkIfDue();

Q_SIGNALS:
    void answered(const UpdateAnswer &answer);

private:
    void receive();
    void refuse(const QString &problem);
    void finish();
    UpdateAnswer evaluate(const QNetworkReply &reply) const;

    Source m_source;
    UpdateSettings m_settings;
    QNetworkAccessManager *m_network = nullptr;
    QPointer<QNetworkReply> m_reply; ///< while a question is open
    QTimer m_deadline;
    QByteArray m_bytes;
    QString m_refusal;
};
