#include "Ratio.h"
#include "model/NormalMapProcessor.h"
#include "model/Project.h"
#include "model/PropertyAngleImage.h"

#include <array>
#include <memory>

namespace {

constexpr int stepLength = 4;
constexpr QSize dab(64, 64);

/// Strokes from left to right through the middle of a surface, each step shown before the next.
class Stroke
{
public:
    explicit Stroke(int side)
        : m_body(m_project)
        , m_left((side - stepCount * stepLength - dab.width()) / 2)
        , m_top((side - dab.height()) / 2)
    {
        m_body.paintedNormalMap().setAngleImage(AngleImage(side, side, 77),
                                                QStringLiteral("paint"));
        m_processor = std::make_unique<NormalMapProcessor>(m_body);
        m_processor->setExpectsPieces(true);
        m_processor->waitForIdle();
    }

    void paint()
    {
        for (int step = 0; step < stepCount; ++step) {
            const QRect rect(QPoint(m_left + step * stepLength, m_top), dab);
            m_processor->updateRect(m_pieces[0], rect);
            m_processor->waitForIdle();
        }
    }

    /// Strokes of one dab. The undo steps are not measured here: each is stored without one.
    void paintAndCommit()
    {
        for (int step = 0; step < stepCount; ++step) {
            const QRect rect(QPoint(m_left + step * stepLength, m_top), dab);
            m_processor->updateRect(m_pieces[step % 2], rect);
            m_processor->waitForIdle();
            m_body.paintedNormalMap().setValue(encode(m_processor->angleImage()));
            m_processor->waitForIdle();
        }
    }

private:
    static constexpr int stepCount = 100;

    Project m_project;
    Body m_body;
    int m_left;
    int m_top;
    std::array<AngleImage, 2> m_pieces{AngleImage(dab.width(), dab.height(), 1234),
                                       AngleImage(dab.width(), dab.height(), 4321)};
    std::unique_ptr<NormalMapProcessor> m_processor;
};

const bool row = addRatio("100 updateRect of 64x64, 4096x4096 / 512x512", 1.0 / 1.5, [] {
    const auto large = std::make_shared<Stroke>(4096);
    const auto small = std::make_shared<Stroke>(512);
    return Contest{[large] { large->paint(); }, [small] { small->paint(); }};
});

const bool commitRow = addRatio("100 commits of 64x64, 4096x4096 / 512x512", 1.0 / 1.5, [] {
    const auto large = std::make_shared<Stroke>(4096);
    const auto small = std::make_shared<Stroke>(512);
    return Contest{[large] { large->paintAndCommit(); }, [small] { small->paintAndCommit(); }};
});

} // namespace
