#pragma once

#include <QImage>
#include <QString>
#include <QVector>

/// A pattern that is chosen by its name.
struct Pattern
{
    QString name; ///< the file's, without the extension
    QString file;
    bool isBuiltIn = false;
};

/// The patterns to choose from: those of the program, then those in the user's folder.
QVector<Pattern> allPatterns();

/// True when patternPicture() finds something under this name or path.
bool isPattern(const QString &choice);
/// The picture of the pattern that @p choice names: a name in any case, a file's name, or else the
/// path of a file. Throws Error that names @p option and lists the names when it is none of them.
QImage patternPicture(const QString &choice, const QString &option);
