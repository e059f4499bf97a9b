#include "framework/UpdateSettings.h"

#include "base/GSettings.h"

#include <QCoreApplication>
#include <QDateTime>

namespace {
constexpr qint64 secondsADay = 86400;

const QLatin1String dailyKey("updates/daily");
const QLatin1String questionKey("updates/questionPut");
const QLatin1String preReleasesKey("updates/preReleases");
const QLatin1String skippedKey("updates/skippedVersion");
const QLatin1String lastKey("updates/lastQuestion");
} // namespace

SemanticVersion runningVersion()
{
    return SemanticVersion::parse(QCoreApplication::applicationVersion())
        .value_or(SemanticVersion());
}

bool UpdateSettings::asksDaily() const
{
    return m_settings.value(dailyKey).toBool();
}

void UpdateSettings::setAsksDaily(bool isDaily)
{
    m_settings.setValue(dailyKey, isDaily);
}

bool UpdateSettings::isQuestionPut() const
{
    return m_settings.value(questionKey).toBool() || m_settings.value(dailyKey).isValid();
}

void UpdateSettings::setQuestionPut()
{
    m_settings.setValue(questionKey, true);
}

bool UpdateSettings::wantsPreReleases() const
{
    return m_settings.value(preReleasesKey, runningVersion().isPreRelease()).toBool();
}

void UpdateSettings::setWantsPreReleases(bool isWanted)
{
    m_settings.setValue(preReleasesKey, isWanted);
}

bool UpdateSettings::isSkipped(const SemanticVersion &version) const
{
    return m_settings.value(skippedKey).toString() == version.toString();
}

void UpdateSettings::skip(const SemanticVersion &version)
{
    m_settings.setValue(skippedKey, version.toString());
}

bool UpdateSettings::isDue(const QDateTime &now) const
{
    const auto last = QDateTime::fromString(m_settings.value(lastKey).toString(), Qt::ISODate);
    return !last.isValid() || now < last || last.secsTo(now) >= secondsADay;
}

void UpdateSettings::setLastQuestion(const QDateTime &now)
{
    m_settings.setValue(lastKey, now.toUTC().toString(Qt::ISODate));
}
