#pragma once

class QImage;

/// What an image that is to become a surface gives cause to doubt.
struct NormalMapJudgement
{
    bool isForeign = false;    ///< it looks like no normal map at all
    bool hasGreenDown = false; ///< green counts the other way; not said of what is foreign
    bool isFlatAt128 = false;  ///< flat ground is 128, 128, 255 and not 127, 127, 255

    bool isClean() const { return !isForeign && !hasGreenDown && !isFlatAt128; }
    bool operator==(const NormalMapJudgement &) const = default;
};

/// Judges @p image by a grid of its pixels, about a quarter of a million at most; those of alpha 0
/// are passed over. A doubt is raised only on clear signs.
///
/// Green: the slopes of a surface are integrable, so that what X slopes gain going down is what Y
/// slopes gain going right (after Frankot and Chellappa, 1988); with green down it is the opposite.
NormalMapJudgement judgeNormalMap(const QImage &image);
