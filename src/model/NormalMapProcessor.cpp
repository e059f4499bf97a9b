#include "model/NormalMapProcessor.h"

#include "imaging/AsyncUpdateThread.h"
#include "imaging/NormalEncoding.h"
#include "imaging/NormalMapUpdateAlgorithm.h"
#include "model/Body.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"

NormalMapProcessor::NormalMapProcessor(Body &body)
    : m_body(body)
    , m_normalMap(flatNormalMap(body.sprite().image().size()))
    , m_surfaceObservation(ChangeManager::instance().observe(body.paintedNormalMap(), *this))
    , m_spriteObservation(ChangeManager::instance().observe(body.sprite(), *this))
    , m_algorithm(std::make_unique<NormalMapUpdateAlgorithm>())
    , m_thread(
          std::make_unique<AsyncUpdateThread<NormalMapUpdateParams, QPair<AngleImage, QImage>>>(
              m_algorithm.get(), true))
{
    connect(m_thread.get(),
            &AsyncUpdateThreadBase::resultAvailable,
            this,
            &NormalMapProcessor::normalMapUpdateFinished);
    updateAll();
}

NormalMapProcessor::~NormalMapProcessor() = default;

// To make a large one takes longer than there is time for an event.
AngleImage NormalMapProcessor::surface()
{
    if (!m_body.paintedSize().isEmpty()) {
        m_flatSurface = {};
        return m_body.surface();
    }
    if (m_flatSurface.size() != m_body.sprite().image().size())
        m_flatSurface = m_body.surface();
    return m_flatSurface;
}

// A commit's update starts once the commit is over: then nobody keeps the surface that the document
// held before, whose block is taken over instead of a copy of everything.
void NormalMapProcessor::scheduleUpdate()
{
    if (m_isScheduled)
        return;
    m_isScheduled = true;
    QMetaObject::invokeMethod(this, &NormalMapProcessor::updateScheduled, Qt::QueuedConnection);
}

void NormalMapProcessor::updateScheduled()
{
    if (m_isScheduled)
        updateAll();
}

void NormalMapProcessor::updateAll()
{
    m_isScheduled = false;
    NormalMapUpdateParams params;
    params.image = surface();
    // For the pieces that may be merged into this request while it waits.
    params.mask = m_mask;
    params.expectsPieces = m_expectsPieces;
    m_requestedSize = params.image.size();
    m_thread->requestUpdate(params);
}

void NormalMapProcessor::updateRect(const AngleImage &piece, const QRect &rect)
{
    const QRect area = rect.isNull() ? piece.rect() : rect;
    if (piece.isNull() || area.isEmpty())
        return;
    updateScheduled();
    m_thread->requestUpdate({{}, {piece}, {area}, m_mask});
}

void NormalMapProcessor::setMask(const FloatImage &mask)
{
    waitForIdle();
    m_mask = mask;
}

void NormalMapProcessor::setExpectsPieces(bool expectsPieces)
{
    if (expectsPieces == m_expectsPieces)
        return;
    m_expectsPieces = expectsPieces;
    updateAll();
}

void NormalMapProcessor::waitForIdle()
{
    updateScheduled();
    m_thread->waitForIdle();
}

void NormalMapProcessor::observableChanged(Observable &observable)
{
    // The sprite only lends its size, and only to a surface that is not painted yet.
    const bool isSprite = &observable == &m_body.sprite();
    if (isSprite && !m_body.paintedSize().isEmpty())
        return;
    if (isSprite && m_body.sprite().image().size() == m_requestedSize)
        return;
    scheduleUpdate();
}

void NormalMapProcessor::normalMapUpdateFinished()
{
    if (m_thread->isBusy())
        return;
    m_angleImage = m_thread->result().first;
    m_normalMap = m_thread->result().second;
    // The next task starts when the signal below has returned.
    m_changedArea = m_algorithm->changedArea();
    Q_EMIT normalMapChanged(m_normalMap);
}
