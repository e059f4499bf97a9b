#include "ui/ProjectFileTypes.h"

QVector<FileAssociation> projectFileTypes(const QString &programFolder)
{
    const auto type = [&](const QString &extension, bool isCurrent) {
        return FileAssociation{extension,
                               QStringLiteral("Vesperine.Project"),
                               QStringLiteral("Vesperine Project"),
                               QStringLiteral("application/x-vesperine-project"),
                               programFolder + QStringLiteral("/icons/VEP.ico"),
                               true,
                               isCurrent,
                               isCurrent};
    };
    return {type(QStringLiteral(".vex"), false), type(QStringLiteral(".vep"), true)};
}
