#pragma once

#include <QMap>
#include <QString>

class QSettings;

/// How a type of files is made known to the desktop where a program does that itself, which is in
/// the registry of Windows. Other desktops read files that are installed beside the program.
struct FileAssociation
{
    QString extension;   ///< with its dot
    QString identifier;  ///< the type's name for programs
    QString description; ///< its name for people
    QString mimeType;
    QString icon;      ///< path of an icon file
    bool isRegistered; ///< the type is known, and the program is offered for it
    bool isOpened;     ///< the program opens it, unless the user chose another one
    bool showsIcon;    ///< its files bear the icon
};

/// What stands for @p association below "Software/Classes": keys, parts divided by slashes, with
/// their values. @p program is the path of the executable.
QMap<QString, QString> associationValues(const FileAssociation &association,
                                         const QString &program);

/// Writes what differs into @p classes; true when something did.
bool storeAssociation(const FileAssociation &association,
                      const QString &program,
                      QSettings &classes);

/// Tells the desktop of @p association for the running program and this user.
void registerAssociation(const FileAssociation &association);
