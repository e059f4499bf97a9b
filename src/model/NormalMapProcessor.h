#pragma once

#include "imaging/AngleImage.h"
#include "imaging/FloatImage.h"
#include "model/properties/ChangeManager.h"
#include "model/properties/Observer.h"

#include <QImage>
#include <QObject>
#include <QPair>

#include <memory>

class Body;
class NormalMapUpdateAlgorithm;
struct NormalMapUpdateParams;
template <class Params, class Result>
class AsyncUpdateThread;

/// Keeps the normal map of one body up to date in the background, with what its surface holds and
/// with what a tool is painting on it. The body is borrowed and outlives this; used on the
/// interface thread only.
class NormalMapProcessor : public QObject, public Observer
{
    Q_OBJECT

public:
    /// Starts a full update.
    explicit NormalMapProcessor(Body &body);
    ~NormalMapProcessor() override;

    Body &body() const { return m_body; }
    /// What the body's own surface() gives, without making a flat one at each call.
    AngleImage surface();
    /// The normal map last published; flat in the sprite's size before the first.
    const QImage &normalMap() const { return m_normalMap; }
    /// The surface that the normal map was computed from; null before the first.
    const AngleImage &angleImage() const { return m_angleImage; }
    /// Where the last update may have changed the normal map: empty when nowhere, all of it when it
    /// has a new size.
    const QRect &changedArea() const { return m_changedArea; }

    /// Computes the body's surface anew; what was painted on it and not committed goes.
    void updateAll();
    /// Shows @p piece, of the surface's or the rectangle's size, at @p rect until the next full
    /// update. A null rectangle means the piece's whole area.
    void updateRect(const AngleImage &piece, const QRect &rect);
    /// Whether pieces are to come: the first is then as fast as all others, at the cost of some
    /// images more. A change starts a full update.
    void setExpectsPieces(bool expectsPieces);
    /// Waits until idle; later pieces are confined to @p mask, null for none.
    void setMask(const FloatImage &mask);
    /// Returns when all updates are computed and published.
    void waitForIdle();

    void observableChanged(Observable &observable) override;

public Q_SLOTS:
    void normalMapUpdateFinished();

Q_SIGNALS:
    /// There is a new normal map. To keep the image past the next signal makes the update after
    /// that copy it whole.
    void normalMapChanged(const QImage &normals);

private:
    void scheduleUpdate();
    void updateScheduled();

    Body &m_body;
    FloatImage m_mask;
    QImage m_normalMap;
    AngleImage m_angleImage;
    QRect m_changedArea;
    QSize m_requestedSize;
    AngleImage m_flatSurface; // of a body that is not painted
    bool m_expectsPieces = false;
    bool m_isScheduled = false;
    Observation m_surfaceObservation;
    Observation m_spriteObservation;
    // Destroyed from the last to the first: the thread waits for a task that uses the algorithm.
    std::unique_ptr<NormalMapUpdateAlgorithm> m_algorithm;
    std::unique_ptr<AsyncUpdateThread<NormalMapUpdateParams, QPair<AngleImage, QImage>>> m_thread;
};
