#pragma once

#include <QString>

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

/// The files that an application keeps its documents in.
struct DocumentType
{
    QString openFilter; ///< such as "Vesperine projects (*.vep *.vex)"
    QString saveFilter; ///< such as "Vesperine projects (*.vep)"
    QString suffix;     ///< added to names without one, without a dot
    QString newName;    ///< the title of what was never saved, such as "Untitled"
};

/// Lets the user choose over @p window where a document is saved, @p proposal to begin with, and
/// asks about a file that is there. Empty when it was cancelled.
QString chooseSavePath(const DocumentType &type, QString proposal, QWidget *window);
