#include "framework/SavePath.h"

#include "framework/Proposal.h"
#include "framework/QuotedName.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileInfo>

namespace {
struct Words
{
    Q_DECLARE_TR_FUNCTIONS(SavePath)
};

// Any other is a part of the name, as in "level 1.5".
bool isSuffixOf(const DocumentType &type, const QString &suffix)
{
    const QStringList patterns = type.openFilter.section(QLatin1Char('('), -1)
                                     .section(QLatin1Char(')'), 0, 0)
                                     .split(QLatin1Char(' '));
    return patterns.contains(QLatin1String("*.") + suffix, Qt::CaseInsensitive);
}

bool mayOverwrite(const QString &path, QWidget *window)
{
    const QString name = quoted(QFileInfo(path).fileName());
    return isAgreedTo({Words::tr("Replace file?"),
                       Words::tr("%1 already exists. Replace it?").arg(name),
                       Words::tr("What it holds now is lost."),
                       Words::tr("Replace")},
                      window);
}
} // namespace

QString chooseSavePath(const DocumentType &type, QString proposal, QWidget *window)
{
    while (true) {
        QString path =
            QFileDialog::getSaveFileName(window, Words::tr("Save As"), proposal, type.saveFilter);
        if (path.isEmpty() || isSuffixOf(type, QFileInfo(path).suffix()))
            return path;
        // The file dialog has asked about the name as it was typed, not about this one.
        path += (path.endsWith(QLatin1Char('.')) ? QString() : QStringLiteral(".")) + type.suffix;
        if (!QFileInfo::exists(path) || mayOverwrite(path, window))
            return path;
        proposal = path;
    }
}
