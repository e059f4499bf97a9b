#include "model/FileWriting.h"

#include "model/SaveDevice.h"

QString writeFile(const QString &path, const QByteArray &bytes)
{
    SaveDevice device(path);
    if (device.open(QIODevice::WriteOnly) && device.write(bytes) == bytes.size() && device.commit())
        return {};
    return device.problem();
}
