#include "preview/SpriteItem.h"

#include "imaging/PixelLoops.h"
#include "model/Body.h"
#include "model/NormalMapProcessor.h"
#include "model/PropertyAngleImage.h"
#include "model/Sprite.h"

namespace {

// Alpha says how much a pixel is selected.
QImage selectionImage(const FloatImage &selection)
{
    if (selection.isNull())
        return {};
    QImage image(selection.size(), QImage::Format_Alpha8);
    for (int y = 0; y < selection.height(); ++y)
        fastestPixelLoops().toAlphas(selection.row(y), image.scanLine(y), selection.width());
    return image;
}

} // namespace

SpriteItem::SpriteItem(Body &body)
    : m_body(body)
    , m_processor(std::make_unique<NormalMapProcessor>(body))
    , m_spriteObservation(ChangeManager::instance().observe(body.sprite(), *this))
    , m_positionObservation(ChangeManager::instance().observe(body.position(), *this))
{
    setColorImage(body.sprite().image());
    setNormalImage(m_processor->normalMap());
    connect(
        m_processor.get(), &NormalMapProcessor::normalMapChanged, this, &SpriteItem::showNormals);
}

SpriteItem::~SpriteItem() = default;

void SpriteItem::storeShown(const QString &undoText) const
{
    m_processor->waitForIdle();
    const AngleImage shown = m_processor->angleImage();
    PropertyAngleImage &stored = m_body.paintedNormalMap();
    // Without a surface the body counts as flat, and stays so when nothing was painted.
    if (!stored.value().isEmpty() || !(shown == m_processor->surface()))
        stored.setAngleImage(shown, undoText);
}

void SpriteItem::setPixelSelection(const FloatImage &selection)
{
    m_processor->setMask(selection);
    setSelectionImage(selectionImage(selection));
    Q_EMIT contentChanged();
}

void SpriteItem::observableChanged(Observable &observable)
{
    if (&observable == &m_body.position()) {
        Q_EMIT placeChanged();
        return;
    }
    const QImage &image = m_body.sprite().image();
    const bool hasNewSize = image.size() != colorImage().size();
    setColorImage(image);
    if (hasNewSize)
        Q_EMIT sizeChanged();
    Q_EMIT contentChanged();
}

void SpriteItem::showNormals(const QImage &normals)
{
    const QRect changed = m_processor->changedArea();
    if (changed.isEmpty() && normals.size() == normalImage().size())
        return;
    // Replaces the former image at once: to keep that one would make the next update copy it.
    setNormalImage(normals, changed);
    Q_EMIT contentChanged();
}
