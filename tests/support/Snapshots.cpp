#include "support/Snapshots.h"

#include "base/Error.h"
#include "model/Body.h"
#include "model/DataModelReader.h"
#include "model/DataModelWriter.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"
#include "model/RecoverySnapshot.h"
#include "model/RecoveryStore.h"
#include "model/properties/PropertyT.h"

#include <QCryptographicHash>
#include <QRandomGenerator>

namespace {
template <class Read>
QByteArray fingerprintOfRead(const Read &read)
{
    try {
        return fingerprintOf(*read());
    } catch (const Error &error) {
        qWarning("%s", error.what());
        return {};
    }
}
} // namespace

QByteArray fingerprintOf(Project &project)
{
    QCryptographicHash hash(QCryptographicHash::Md5);
    const auto snapshot = takeSnapshot(project);
    for (const XmlElement &element : snapshot.elements) {
        const bool isOwnName = element.depth == 1 && element.tag == QLatin1String("filename");
        hash.addData(QByteArray::number(element.depth) + element.tag.toUtf8() + '|');
        hash.addData(isOwnName ? QByteArray() : element.text.toUtf8() + '|');
    }
    for (const auto &surface : snapshot.surfaces)
        hash.addData(QByteArray::number(surface.value.size()) + '|' + surface.value);
    return hash.result().toHex();
}

QByteArray fingerprintOf(const QString &path)
{
    return fingerprintOfRead([&path] {
        return DataModelReader(QStringLiteral(".vep"), QStringLiteral(".vexml")).read(path);
    });
}

QByteArray fingerprintOf(const RecoveryEntry &entry)
{
    QStringList damagedBodies;
    return fingerprintOfRead([&] { return RecoveryStore::read(entry, &damagedBodies); });
}

AngleImage noise(int side, quint32 seed)
{
    QRandomGenerator random(seed);
    AngleImage surface(side, side);
    for (int y = 0; y < side; ++y)
        random.fillRange(reinterpret_cast<quint32 *>(surface.row(y)), side);
    return surface;
}

void writeProject(const Folder &folder, const QString &path, int bodies, int side)
{
    Project project;
    for (int i = 0; i < bodies; ++i) {
        const QString name = QStringLiteral("%1-%2").arg(side).arg(i);
        const QString sprite = folder.writeSprite(name + QStringLiteral(".png"), {side, side});
        addBody(project, name, sprite).paintedNormalMap().setValue(encode(noise(side, quint32(i))));
    }
    project.filename().setValue(GFileName(path));
    DataModelWriter(project).write();
}
