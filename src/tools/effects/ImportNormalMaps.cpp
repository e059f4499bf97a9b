#include "tools/effects/ImportNormalMaps.h"

#include "framework/ListDialog.h"
#include "framework/ThemedIcon.h"
#include "imaging/NormalEncoding.h"
#include "model/Body.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"
#include "model/properties/GUndoStack.h"
#include "model/properties/PropertyT.h"
#include "tools/effects/NormalMapReading.h"

#include <QFileDialog>
#include <QFileInfo>

#include <algorithm>

namespace {
QString sizeText(const QSize &size)
{
    return QStringLiteral("%1 × %2").arg(size.width()).arg(size.height());
}
} // namespace

ImportNormalMaps::ImportNormalMaps(GSettings &settings, QObject *parent)
    : Filter(themedIcon(QStringLiteral(":/painttoolicons/import.svg")),
             tr("Import normal maps from folder..."),
             QString(),
             parent)
    , m_settings(settings)
{
}

void ImportNormalMaps::run()
{
    importMaps();
    close();
}

// The effect may be discarded while a dialog is up; its bodies may be gone then.
void ImportNormalMaps::importMaps()
{
    const QString folder =
        QFileDialog::getExistingDirectory(context().window,
                                          tr("Select folder of normal maps to import"),
                                          importFolder(m_settings, *bodies().first()));
    if (folder.isEmpty() || !isOpen())
        return;
    keepImportFolder(m_settings, folder);
    Outcomes outcomes = find(folder);
    if (!read(outcomes) || !isOpen() || !settleGreen(outcomes) || !isOpen())
        return;
    {
        const UndoMacro macro(bodies().first()->undoStack(), tr("Import normal maps"));
        for (const Outcome &outcome : std::as_const(outcomes)) {
            if (!outcome.surface.isNull())
                outcome.body->paintedNormalMap().setAngleImage(outcome.surface,
                                                               tr("Import normal map"));
        }
    }
    tell(outcomes);
}

ImportNormalMaps::Outcomes ImportNormalMaps::find(const QString &folder) const
{
    Outcomes outcomes;
    for (Body *body : bodies()) {
        Outcome outcome{body, {}, {}, {}};
        const QString name = body->name().value();
        const QStringList paths = normalMapPaths(*body, folder, context().mapSuffix);
        const auto found = std::find_if(paths.begin(), paths.end(), [](const QString &path) {
            return QFileInfo::exists(path);
        });
        if (body->sprite().image().isNull())
            outcome.notes.append(
                tr("%1: it has neither a sprite nor a surface, so no size is known. Give it its "
                   "sprite first.")
                    .arg(name));
        else if (paths.isEmpty())
            outcome.notes.append(
                tr("%1: it has no sprite by whose name a map could be found. Use 'Import normal "
                   "map...' for it.")
                    .arg(name));
        else if (found == paths.end())
            outcome.notes.append(tr("%1: there is no '%2' in the folder. Check the folder and the "
                                    "normal map suffix of the project.")
                                     .arg(name, QFileInfo(paths.first()).fileName()));
        else
            outcome.path = *found;
        outcomes.append(outcome);
    }
    return outcomes;
}

bool ImportNormalMaps::read(Outcomes &outcomes) const
{
    QVector<NormalMapRequest> requests;
    QVector<Outcome *> asking;
    for (Outcome &outcome : outcomes) {
        if (outcome.path.isEmpty())
            continue;
        requests.append({outcome.path, outcome.body->sprite().image().size()});
        asking.append(&outcome);
    }
    const auto maps = readNormalMaps(requests, context().progress);
    if (!maps || !isOpen())
        return false;
    for (int i = 0; i < asking.size(); ++i) {
        const ImportedNormalMap &map = maps->at(i);
        asking[i]->notes = notesAbout(map, *asking[i]->body);
        asking[i]->surface = map.surface;
        asking[i]->hasGreenDown = map.judgement.hasGreenDown;
    }
    return true;
}

QStringList ImportNormalMaps::notesAbout(const ImportedNormalMap &map, const Body &body) const
{
    const QString file = QFileInfo(map.path).fileName();
    if (map.size.isEmpty())
        return {tr("%1: it can't be read as an image. Save it anew as PNG or JPEG.").arg(file)};
    if (map.surface.isNull())
        return {tr("%1: it has %2 pixels, but '%3' has %4. Bring the map to that size.")
                    .arg(file,
                         sizeText(map.size),
                         body.name().value(),
                         sizeText(body.sprite().image().size()))};
    NormalMapJudgement judgement = map.judgement;
    judgement.hasGreenDown = false; // is asked about
    QStringList notes;
    for (const QString &doubt : doubtsAbout(judgement))
        notes.append(file + QStringLiteral(": ") + doubt);
    return notes;
}

bool ImportNormalMaps::settleGreen(Outcomes &outcomes) const
{
    QStringList files;
    for (const Outcome &outcome : std::as_const(outcomes)) {
        if (outcome.hasGreenDown)
            files.append(QFileInfo(outcome.path).fileName());
    }
    if (files.isEmpty())
        return true;
    ListDialog dialog({tr("Import normal maps"),
                       tr("In these normal maps green seems to count downwards, so that light from "
                          "above would seem to come from below:"),
                       files,
                       {tr("Flip green and import"), tr("Import as they are"), tr("Cancel")}},
                      context().window);
    const int chosen = dialog.choose();
    if (chosen != 0)
        return chosen == 1;
    for (Outcome &outcome : outcomes) {
        if (outcome.hasGreenDown)
            flipY(outcome.surface);
    }
    return true;
}

void ImportNormalMaps::tell(const Outcomes &outcomes) const
{
    QStringList notes;
    int imported = 0;
    for (const Outcome &outcome : outcomes) {
        notes.append(outcome.notes);
        imported += outcome.surface.isNull() ? 0 : 1;
    }
    if (notes.isEmpty())
        return;
    ListDialog dialog({tr("Import normal maps"),
                       tr("%1 of %2 normal maps have been imported. This is worth knowing:")
                           .arg(imported)
                           .arg(outcomes.size()),
                       notes,
                       {tr("Continue")}},
                      context().window);
    dialog.choose();
}
