#include "imaging/PaintToolBlurJob.h"
#include "imaging/Smoothing.h"
#include "support/Pictures.h"

#include <QTest>

#include <opencv2/imgproc.hpp>

class TestSmoothing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void kernel()
    {
        const std::pair<double, int> sides[] = {
            {0.1, 3}, {0.5, 3}, {1.0, 3}, {1.74, 3}, {1.75, 5}, {2.0, 5}, {3.0, 7}, {9.0, 19}};
        for (const auto &[radius, side] : sides)
            QCOMPARE(smoothingKernel(radius), side);
    }

    // Bands of the image give what the whole does, blurred as floats and rounded once.
    void slopesAreThoseOfTheWholeImage()
    {
        std::mt19937 random(21);
        for (const QSize size : {QSize(1, 1), QSize(1, 90), QSize(53, 1), QSize(37, 300)}) {
            for (const double radius : {0.5, 3.0, 40.0}) {
                const AngleImage surface = randomAngles(size, random);
                cv::Mat slopes(size.height(), size.width(), CV_32FC2);
                for (int i = 0; i < size.width() * size.height(); ++i) {
                    const AngleImage::Pixel cell = surface.row(0)[i];
                    slopes.ptr<cv::Vec2f>()[i] = {float(cell.sx) / 256.0F, float(cell.sy) / 256.0F};
                }
                const cv::Size kernel(smoothingKernel(radius), smoothingKernel(radius));
                cv::GaussianBlur(
                    slopes, slopes, kernel, radius / 2, radius / 2, cv::BORDER_REPLICATE);
                const AngleImage result = PaintToolBlurJob().compute({surface, radius});
                for (int i = 0; i < size.width() * size.height(); ++i) {
                    const cv::Vec2f blurred = slopes.ptr<cv::Vec2f>()[i];
                    const AngleImage::Pixel expected{toStoredSlope(blurred[0]),
                                                     toStoredSlope(blurred[1])};
                    QCOMPARE(result.row(0)[i], expected);
                }
            }
        }
    }
};

QTEST_GUILESS_MAIN(TestSmoothing)

#include "tst_Smoothing.moc"
