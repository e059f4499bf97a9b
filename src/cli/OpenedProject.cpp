#include "cli/OpenedProject.h"

#include "base/Error.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"
#include "model/properties/PropertyT.h"

OpenedProject::OpenedProject(Console &console)
    : m_console(console)
    , m_prompts(console)
    , m_controller(m_settings, m_prompts)
{
}

bool OpenedProject::openWithoutSprites(const QString &path)
{
    try {
        m_controller.openProject(path, ProjectController::Lock::OnSaving);
    } catch (const Error &error) {
        m_console.complain(error.message());
        return false;
    }
    return true;
}

bool OpenedProject::open(const QString &path)
{
    if (!openWithoutSprites(path))
        return false;
    m_controller.loadTextures();
    return true;
}

ExitCode OpenedProject::save(const QString &outputPath)
{
    const GFileName target =
        outputPath.isEmpty() ? m_controller.project().filename().value() : GFileName(outputPath);
    if (!isProjectName(target.path(), m_console))
        return ExitCode::Usage;
    try {
        m_controller.saveAs(target);
    } catch (const Error &error) {
        m_console.complain(error.message());
        return ExitCode::Failed;
    }
    return ExitCode::Done;
}

QVector<Body *> OpenedProject::bodies() const
{
    return m_controller.project().bodies().all();
}

Body &OpenedProject::body(const QString &name) const
{
    const auto all = bodies();
    bool isIndex = false;
    const int index = name.mid(1).toInt(&isIndex);
    if (isIndex && name.startsWith(QLatin1Char('#'))) {
        if (index < 1 || index > all.size())
            throw Error(QStringLiteral("There is no body %1, the project has %2")
                            .arg(name, QString::number(all.size())));
        return *all[index - 1];
    }
    QStringList places;
    Body *found = nullptr;
    for (int i = 0; i < all.size(); ++i) {
        if (all[i]->name().value() != name)
            continue;
        found = all[i];
        places.append(QStringLiteral("#%1").arg(i + 1));
    }
    if (!found)
        throw Error(QStringLiteral("There is no body named '%1'").arg(name));
    if (places.size() > 1)
        throw Error(QStringLiteral("'%1' names several bodies, use one of %2")
                        .arg(name, places.join(QStringLiteral(", "))));
    return *found;
}

bool isProjectName(const QString &path, Console &console)
{
    if (path.endsWith(QLatin1String(".vep")))
        return true;
    console.complain(
        QStringLiteral("'%1' can't be written: give the project a name that ends in .vep")
            .arg(path));
    return false;
}

BodyStatus statusOf(const Body &body)
{
    if (body.paintedNormalMap().isDamaged())
        return BodyStatus::Damaged;
    if (body.paintedNormalMap().hasEmptySide())
        return BodyStatus::Empty;
    if (!body.sprite().isLoaded())
        return body.sprite().problem().isEmpty() ? BodyStatus::Missing : BodyStatus::Unreadable;
    if (body.sprite().isWrongSized())
        return BodyStatus::WrongSize;
    return body.sprite().isChanged() ? BodyStatus::Changed : BodyStatus::Ok;
}

QString statusWord(BodyStatus status)
{
    switch (status) {
    case BodyStatus::Ok:
        return QStringLiteral("ok");
    case BodyStatus::Missing:
        return QStringLiteral("missing");
    case BodyStatus::Unreadable:
        return QStringLiteral("unreadable");
    case BodyStatus::Changed:
        return QStringLiteral("changed");
    case BodyStatus::WrongSize:
        return QStringLiteral("wrong-size");
    case BodyStatus::Empty:
        return QStringLiteral("empty-surface");
    case BodyStatus::Damaged:
        break;
    }
    return QStringLiteral("damaged");
}

QString statusReason(const Body &body)
{
    return statusOf(body) == BodyStatus::Unreadable
               ? QStringLiteral(" (%1)").arg(body.sprite().problem())
               : QString();
}
