#include "framework/FileAssociation.h"

#include <QSettings>

#ifdef Q_OS_WIN
#include <QCoreApplication>
#include <QDir>

#include <windows.h>

#include <shlobj.h>
#endif

QMap<QString, QString> associationValues(const FileAssociation &association, const QString &program)
{
    const QString extension = association.extension + QLatin1Char('/');
    const QString type = association.identifier + QLatin1Char('/');
    QMap<QString, QString> values;
    if (association.isRegistered) {
        values[extension + QLatin1String("Content Type")] = association.mimeType;
        values[extension + QLatin1String("OpenWithProgids/") + association.identifier] =
            QLatin1String("");
        values[type + QLatin1String("Default")] = association.description;
    }
    if (association.isOpened) {
        values[extension + QLatin1String("Default")] = association.identifier;
        values[type + QLatin1String("shell/open/command/Default")] =
            QStringLiteral("\"%1\" \"%2\"").arg(program, QLatin1String("%1"));
    }
    if (association.showsIcon)
        values[type + QLatin1String("DefaultIcon/Default")] = association.icon;
    return values;
}

bool storeAssociation(const FileAssociation &association,
                      const QString &program,
                      QSettings &classes)
{
    const QMap<QString, QString> values = associationValues(association, program);
    bool hasChanged = false;
    for (auto value = values.begin(); value != values.end(); ++value) {
        if (classes.contains(value.key()) && classes.value(value.key()) == value.value())
            continue;
        classes.setValue(value.key(), value.value());
        hasChanged = true;
    }
    return hasChanged;
}

void registerAssociation([[maybe_unused]] const FileAssociation &association)
{
#ifdef Q_OS_WIN
    QSettings classes(QStringLiteral("HKEY_CURRENT_USER\\Software\\Classes"),
                      QSettings::NativeFormat);
    FileAssociation native = association;
    native.icon = QDir::toNativeSeparators(association.icon);
    const QString program = QDir::toNativeSeparators(QCoreApplication::applicationFilePath());
    if (!storeAssociation(native, program, classes))
        return;
    classes.sync();
    // The desktop keeps the icons that it knows until it is told.
    SHChangeNotify(SHCNE_ASSOCCHANGED, SHCNF_IDLIST, nullptr, nullptr);
#endif
}
