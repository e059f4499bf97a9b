#pragma once

#include "imaging/SynchronousUpdateAlgorithm.h"

#include <QImage>
#include <QString>

/// A pattern's picture, or why there is none.
struct ReadPattern
{
    QImage image;
    QString problem; ///< in words for the user; empty where nothing was read
};

/// The picture in the file at @p path, of at most largestPatternSide pixels a side.
ReadPattern readPattern(const QString &path);

constexpr int largestPatternSide = 8192;

/// Reads patterns in the background: a large one takes longer than a frame.
class PatternReadingJob : public SynchronousUpdateAlgorithm<QString, ReadPattern>
{
public:
    /// Nothing for no path.
    ReadPattern compute(const QString &path) override;
};
