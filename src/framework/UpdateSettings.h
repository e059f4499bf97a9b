#pragma once

#include "framework/SemanticVersion.h"

class GSettings;
QT_BEGIN_NAMESPACE
class QDateTime;
QT_END_NAMESPACE

/// What the user has decided about updates, kept under "updates/"; as cheap to make as a reference.
class UpdateSettings
{
public:
    /// @p settings outlive this.
    explicit UpdateSettings(GSettings &settings)
        : m_settings(settings)
    {
    }

    /// Whether the user has agreed that the program asks once a day.
    bool asksDaily() const;
    void setAsksDaily(bool isDaily);
    /// Whether the user has been asked, or has decided without.
    bool isQuestionPut() const;
    void setQuestionPut();

    /// Wanted from the start by who runs a pre-release.
    bool wantsPreReleases() const;
    void setWantsPreReleases(bool isWanted);

    bool isSkipped(const SemanticVersion &version) const;
    void skip(const SemanticVersion &version);

    /// True a day after the last question, and when the clock shows a time before it.
    bool isDue(const QDateTime &now) const;
    void setLastQuestion(const QDateTime &now);

private:
    GSettings &m_settings;
};

/// The version of the program that runs.
SemanticVersion runningVersion();
