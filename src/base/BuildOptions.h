#pragma once

#include <QString>
#include <QUrl>

// What whoever builds the program for others decides; a plain build leaves all of it out.

/// Where the feed of releases is, VESPERINE_UPDATE_FEED; empty in a build that asks nobody.
QUrl updateFeedAddress();

/// Where feedback goes by mail, VESPERINE_FEEDBACK_ADDRESS; empty in a build without.
QString feedbackAddress();
