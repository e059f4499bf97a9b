#include "ui/SampleAction.h"

#include "framework/InstalledFile.h"

#include <QCoreApplication>
#include <QMenu>

void addSampleAction(QMenu &menu, const std::function<void(const QStringList &)> &open)
{
    const QString sample = installedFile(QStringLiteral("samples/sample.vep"));
    if (sample.isEmpty())
        return;
    QAction *action =
        menu.addAction(QCoreApplication::translate("SampleAction", "&Open the sample project"));
    action->setObjectName(QStringLiteral("openSample"));
    QObject::connect(action, &QAction::triggered, &menu, [open, sample] { open({sample}); });
}
