#pragma once

#include "framework/SemanticVersion.h"

#include <QDate>
#include <QList>
#include <QUrl>

/// What the feed tells of a release.
struct UpdateRelease
{
    SemanticVersion version;
    QString title; ///< a line of plain text, at most 120 characters
    QDate date;    ///< invalid when the feed does not tell
    QUrl page;     ///< begins with https
};

/// The releases in an Atom feed, in its order; none when @p bytes are no such feed. The version is
/// the first word of an entry's title that is one, or else the last part of its link; entries
/// without a version or without a link to an https page are left out.
///
/// The feed may come from anybody: it has to be UTF-8 without a document type, so that there are no
/// entities, and nothing in it makes reading it slow.
std::optional<QList<UpdateRelease>> readUpdateFeed(const QByteArray &bytes);

/// The newest of @p releases if it is newer than @p running, pre-releases only if they are wanted.
std::optional<UpdateRelease> newerRelease(const QList<UpdateRelease> &releases,
                                          const SemanticVersion &running,
                                          bool withPreReleases);
