#include "ui/FeedbackAction.h"

#include "framework/CrashLog.h"
#include "framework/GAction.h"
#include "framework/GMainWindow.h"
#include "framework/SystemInformationDialog.h"
#include "framework/ThemedIcon.h"
#include "ui/FeedbackDialog.h"

#include <QCoreApplication>

GAction &addFeedbackAction(GMainWindow &window,
                           GSettings &settings,
                           const std::function<QString()> &systemInformation)
{
    auto *action = new GAction(themedIcon(QStringLiteral(":/qrv_tools/icons/Icons_Comment.svg")),
                               QCoreApplication::translate("FeedbackAction", "Send feedback..."),
                               &window);
    action->setObjectName(QStringLiteral("feedback"));
    QObject::connect(action, &QAction::triggered, &window, [&window, &settings, systemInformation] {
        const auto crash = CrashLog::lastTaken(CrashLog::folder());
        FeedbackDialog({systemSummary() + systemInformation(), crash ? crash->text : QString()},
                       settings,
                       &window)
            .exec();
    });
    window.addHelpAction(*action);
    return *action;
}
