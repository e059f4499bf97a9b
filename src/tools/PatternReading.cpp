#include "tools/PatternReading.h"

#include "model/ImageReading.h"

#include <QCoreApplication>

#include <algorithm>

namespace {
struct Words
{
    Q_DECLARE_TR_FUNCTIONS(PatternReading)
};
} // namespace

ReadPattern readPattern(const QString &path)
{
    const ReadImage read = readImageFile(path);
    if (read.image.isNull())
        return {{}, Words::tr("This pattern can't be read: %1.").arg(read.shownProblem())};
    if (std::max(read.image.width(), read.image.height()) > largestPatternSide)
        return {{},
                Words::tr("This pattern is larger than %1 pixels a side.").arg(largestPatternSide)};
    return {read.image, {}};
}

ReadPattern PatternReadingJob::compute(const QString &path)
{
    return path.isEmpty() ? ReadPattern() : readPattern(path);
}
