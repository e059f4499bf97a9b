#pragma once

#include "model/FileStamp.h"
#include "model/LitThumbnail.h"
#include "model/properties/PropertyXMLWriter.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QVector>

/// A project at one moment as plain values, taken in little time for other threads to write.
struct RecoverySnapshot
{
    struct Surface
    {
        QString id;           ///< in the XML text
        quint64 revision = 0; ///< of the property that holds it
        QByteArray value;     ///< shared with the project: to be let go of soon
        QByteArray packed;    ///< empty where nobody has packed it so far
    };

    QString projectPath;
    FileStamp projectFile; ///< the file as the project was read from or saved to it
    QDateTime time;
    XmlElements elements; ///< with absolute paths
    QVector<Surface> surfaces;
    ThumbnailParts thumbnail;

    /// The same but for its time.
    bool isSameAs(const RecoverySnapshot &other) const;
    /// Forgets all that is large; it can still be compared.
    void shrink();
};

/// @p project as it stands, whose changes were made to @p file. Throws Error for one that could not
/// be saved either.
RecoverySnapshot takeSnapshot(Project &project, const FileStamp &file = {});
