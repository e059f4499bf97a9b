#include "tools/PatternReading.h"

#include "model/ImageReading.h"

#include <QCoreApplication>

#include <algorithm>

namespace {
QString words(const char *text)
{
    return QCoreApplication::translate("PatternReading", text);
}
} // namespace

ReadPattern readPattern(const QString &path)
{
    const ReadImage read = readImageFile(path);
    if (read.image.isNull())
        return {{}, words("This pattern can't be read: %1.").arg(read.problem)};
    if (std::max(read.image.width(), read.image.height()) > largestPatternSide)
        return {{}, words("This pattern is larger than %1 pixels a side.").arg(largestPatternSide)};
    return {read.image, {}};
}

ReadPattern PatternReadingJob::compute(const QString &path)
{
    return path.isEmpty() ? ReadPattern() : readPattern(path);
}
