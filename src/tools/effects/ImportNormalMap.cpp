#include "tools/effects/ImportNormalMap.h"

#include "base/PlainText.h"
#include "framework/ThemedIcon.h"
#include "imaging/NormalEncoding.h"
#include "model/Body.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"
#include "tools/effects/NormalMapReading.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

ImportNormalMap::ImportNormalMap(GSettings &settings, QObject *parent)
    : Filter(themedIcon(QStringLiteral(":/painttoolicons/import.svg")),
             tr("Import normal map..."),
             QString(),
             parent)
    , m_settings(settings)
{
}

void ImportNormalMap::run()
{
    importMap();
    close();
}

// The effect may be discarded while a dialog is up; its bodies may be gone then.
void ImportNormalMap::importMap()
{
    Body &body = *bodies().first();
    const QString path = choosePath(body);
    if (path.isEmpty() || !isOpen())
        return;
    keepImportFolder(m_settings, QFileInfo(path).path());
    auto maps = readNormalMaps({{path, body.sprite().image().size()}}, context().progress);
    if (!maps || !isOpen())
        return;
    ImportedNormalMap &map = maps->first();
    if (map.size.isEmpty())
        return showError(tr("Failed to load %1").arg(path));
    if (map.surface.isNull())
        return showError(tr("Normal map has wrong size!"));
    const Answer answer = map.judgement.isClean() ? Answer::Import : ask(map);
    if (answer == Answer::Cancel || !isOpen())
        return;
    if (answer == Answer::Flip)
        flipY(map.surface);
    body.paintedNormalMap().setAngleImage(map.surface, tr("Import normal map"));
}

QString ImportNormalMap::choosePath(const Body &body)
{
    QFileDialog dialog(context().window,
                       tr("Select normal map image to import"),
                       importFolder(m_settings, body),
                       tr("Images (*.png *.jpg)"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

void ImportNormalMap::showError(const QString &message)
{
    QMessageBox box(QMessageBox::Critical, tr("Error"), message, QMessageBox::Ok, context().window);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

ImportNormalMap::Answer ImportNormalMap::ask(const ImportedNormalMap &map)
{
    QMessageBox box(
        QMessageBox::Warning,
        tr("Import normal map"),
        tr("Something about '%1' is unusual:").arg(shownText(QFileInfo(map.path).fileName())),
        QMessageBox::NoButton,
        context().window);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(doubtsAbout(map.judgement).join(QStringLiteral("\n\n")));
    QPushButton *flip = nullptr;
    if (map.judgement.hasGreenDown)
        flip = box.addButton(tr("Flip green and import"), QMessageBox::AcceptRole);
    QPushButton *import = box.addButton(tr("Import as it is"), QMessageBox::AcceptRole);
    box.addButton(QMessageBox::Cancel);
    box.setDefaultButton(flip ? flip : import);
    box.exec();
    if (box.clickedButton() == import)
        return Answer::Import;
    return flip && box.clickedButton() == flip ? Answer::Flip : Answer::Cancel;
}
