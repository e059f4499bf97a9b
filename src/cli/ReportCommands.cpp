#include "cli/Commands.h"
#include "cli/OpenedProject.h"
#include "cli/SettingText.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"
#include "model/properties/PropertyT.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstring>

namespace {
bool isPainted(const AngleImage &surface)
{
    if (surface.isNull())
        return false;
    // Flat cells are 0 and each is like the next, which is the fastest to compare.
    const auto *cells = std::as_const(surface).row(0);
    const auto size = sizeof *cells * size_t(surface.width()) * size_t(surface.height());
    const bool isFlat =
        cells[0] == AngleImage::Pixel() && std::memcmp(cells, cells + 1, size - sizeof *cells) == 0;
    return !isFlat;
}

QSize sizeOf(const Body &body)
{
    return body.paintedSize().isEmpty() ? body.sprite().image().size() : body.paintedSize();
}

QJsonObject bodyObject(const Body &body, int index)
{
    const QSize size = sizeOf(body);
    QJsonObject object{
        {QStringLiteral("index"), index},
        {QStringLiteral("name"), body.name().value()},
        {QStringLiteral("sprite"), body.sprite().filename().value().path()},
        {QStringLiteral("width"), size.width()},
        {QStringLiteral("height"), size.height()},
        {QStringLiteral("status"), statusWord(statusOf(body))},
        {QStringLiteral("painted"), isPainted(body.paintedNormalMap().angleImage())}};
    if (statusOf(body) == BodyStatus::Unreadable)
        object.insert(QStringLiteral("problem"), body.sprite().problem());
    return object;
}

QJsonValue settingValue(Property &setting)
{
    const auto *number = dynamic_cast<const PropertyInt *>(&setting);
    return number ? QJsonValue(number->value()) : QJsonValue(settingText(setting));
}

QString jsonLine(const Project &project)
{
    QJsonObject settings;
    for (const QString &key : Project::settingKeys())
        settings.insert(key, settingValue(project.field<Property>(key)));
    QJsonArray bodies;
    for (const Body *body : project.bodies().all())
        bodies.append(bodyObject(*body, bodies.size() + 1));
    const QJsonObject object{{QStringLiteral("schema"), 1},
                             {QStringLiteral("file"), project.filename().value().path()},
                             {QStringLiteral("settings"), settings},
                             {QStringLiteral("bodies"), bodies}};
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact));
}

void writeTable(const Project &project, Console &console)
{
    console.data(project.filename().value().path());
    for (const QString &key : Project::settingKeys())
        console.data(
            QStringLiteral("  %1 = %2").arg(key, settingText(project.field<Property>(key))));
    int index = 0;
    for (const Body *body : project.bodies().all()) {
        const QSize size = sizeOf(*body);
        const bool painted = isPainted(body->paintedNormalMap().angleImage());
        console.data(QStringLiteral("  #%1  %2  %3x%4  %5  %6  %7")
                         .arg(QString::number(++index),
                              body->name().value(),
                              QString::number(size.width()),
                              QString::number(size.height()),
                              statusWord(statusOf(*body)),
                              painted ? QStringLiteral("painted") : QStringLiteral("flat"),
                              body->sprite().filename().value().path() + statusReason(*body)));
    }
}
} // namespace

ExitCode runInfo(const InfoOptions &options, Console &console)
{
    int unreadable = 0;
    for (const QString &path : options.projects) {
        OpenedProject opened(console);
        if (!opened.open(path)) {
            ++unreadable;
            continue;
        }
        const Project &project = opened.controller().project();
        if (options.json)
            console.data(jsonLine(project));
        else
            writeTable(project, console);
    }
    if (unreadable == 0)
        return ExitCode::Done;
    return unreadable == options.projects.size() ? ExitCode::Unreadable : ExitCode::Partly;
}

ExitCode runCheck(const QStringList &projects, Console &console)
{
    bool unreadable = false;
    bool troubled = false;
    for (const QString &path : projects) {
        OpenedProject opened(console);
        if (!opened.open(path)) {
            unreadable = true;
            continue;
        }
        for (const Body *body : opened.bodies()) {
            const BodyStatus status = statusOf(*body);
            if (status == BodyStatus::Ok)
                continue;
            troubled = true;
            console.data(QStringLiteral("%1: %2: %3: %4")
                             .arg(path,
                                  body->name().value(),
                                  statusWord(status),
                                  body->sprite().filename().value().path() + statusReason(*body)));
        }
    }
    if (unreadable)
        return ExitCode::Unreadable;
    return troubled ? ExitCode::Failed : ExitCode::Done;
}
