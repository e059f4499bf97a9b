#include "imaging/NormalEncoding.h"
#include "imaging/NormalMapJudgement.h"
#include "support/Pictures.h"

#include <QBuffer>
#include <QTest>

namespace {

QImage relief(int side = 160, float steepness = 1.0F, bool isGreenDown = false)
{
    AngleImage slopes = cones({side, side}, steepness);
    if (isGreenDown)
        flipY(slopes);
    return exportedNormalMap(slopes, {});
}

QImage withGround(QRgb ground, const QImage &image)
{
    QImage result = image.convertToFormat(QImage::Format_ARGB32);
    auto *pixels = reinterpret_cast<QRgb *>(result.bits());
    std::replace(pixels, pixels + result.sizeInBytes() / 4, flatNormal, ground);
    return result;
}

QImage asJpeg(const QImage &image, int quality)
{
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    image.save(&file, "jpg", quality);
    return QImage::fromData(file.data());
}

} // namespace

class TestNormalMapJudgement : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyClearSignsRaiseDoubts()
    {
        const QImage ours = relief();
        const QImage down = relief(160, 1.0F, true);
        const struct
        {
            const char *name;
            QImage image;
            NormalMapJudgement expected;
        } maps[] = {
            {"ours", ours, {}},
            {"steep", relief(160, 12.0F), {}},
            {"as a poor JPEG", asJpeg(ours, 40), {}},
            {"flat", flatNormalMap({160, 160}), {}},
            {"transparent outside", withGround(0, ours), {}},
            {"green down in one direction", down.copy(22, 22, 17, 17), {}},
            {"green down", down, {.hasGreenDown = true}},
            {"green down as JPEG", asJpeg(down, 75), {.hasGreenDown = true}},
            {"green down, large", relief(1600, 1.0F, true), {.hasGreenDown = true}},
            {"flat at 128", withGround(qRgb(128, 128, 255), ours), {.isFlatAt128 = true}},
            {"brown",
             withGround(qRgb(120, 80, 50), flatNormalMap({160, 160})),
             {.isForeign = true}},
        };
        for (const auto &map : maps)
            QVERIFY2(judgeNormalMap(map.image) == map.expected, map.name);
    }
};

QTEST_GUILESS_MAIN(TestNormalMapJudgement)
#include "tst_NormalMapJudgement.moc"
