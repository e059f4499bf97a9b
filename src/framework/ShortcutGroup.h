#pragma once

#include <QList>
#include <QPair>
#include <QString>

/// Commands with their keys or gestures, under a title.
struct ShortcutGroup
{
    QString title;
    QList<QPair<QString, QString>> rows;
};
