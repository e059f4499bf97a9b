#include "base/Error.h"
#include "model/DataModelReader.h"
#include "model/DataModelWriter.h"
#include "model/Project.h"
#include "model/properties/PropertyT.h"

#include <QFile>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdlib>

namespace {
std::shared_ptr<Project> load(const QString &path)
{
    return DataModelReader(QStringLiteral(".vep"), QStringLiteral(".vexml")).read(path);
}
} // namespace

// The XML text of a project. What can be read can be saved, and reads back with as many bodies.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("a.vex")));
    file.open(QIODevice::WriteOnly);
    file.write(reinterpret_cast<const char *>(data), qint64(size));
    file.close();
    std::shared_ptr<Project> project;
    try {
        project = load(file.fileName());
    } catch (const Error &) {
        return 0;
    }
    const GFileName saved(folder.filePath(QStringLiteral("a.vep")));
    project->filename().setValue(saved);
    DataModelWriter(*project).write();
    if (load(saved.path())->bodies().size() != project->bodies().size())
        std::abort();
    return 0;
}
