#include "ui/SampleAction.h"

#include "framework/GAction.h"
#include "framework/GMainWindow.h"
#include "framework/InstalledFile.h"

#include <QCoreApplication>

void addSampleAction(GMainWindow &window, const std::function<void(const QString &path)> &open)
{
    const QString sample = installedFile(QStringLiteral("samples/sample.vep"));
    if (sample.isEmpty())
        return;
    auto *action = new GAction(
        QCoreApplication::translate("SampleAction", "&Open the sample project"), &window);
    action->setObjectName(QStringLiteral("openSample"));
    QObject::connect(action, &QAction::triggered, &window, [open, sample] { open(sample); });
    window.addHelpAction(*action);
}
