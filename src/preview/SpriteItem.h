#pragma once

#include "imaging/FloatImage.h"
#include "model/properties/ChangeManager.h"
#include "model/properties/Observer.h"
#include "preview/GLGraphicsSprite.h"

#include <QObject>

#include <memory>

class Body;
class NormalMapProcessor;

/// The sprite of one body, kept up to date with it. The body is borrowed and outlives the item.
class SpriteItem : public QObject, public GLGraphicsSprite, public Observer
{
    Q_OBJECT

public:
    explicit SpriteItem(Body &body);
    ~SpriteItem() override;

    Body &body() const { return m_body; }
    /// Computes the normal map shown; tools and effects show their pieces through it.
    NormalMapProcessor &processor() const { return *m_processor; }
    /// What is shown becomes the body's surface by one undo step; none when nothing changes.
    void storeShown(const QString &undoText) const;
    /// Outlines the pixels that @p selection takes and confines pieces to them; null for none.
    void setPixelSelection(const FloatImage &selection);

    void observableChanged(Observable &observable) override;

Q_SIGNALS:
    /// Something that is drawn has changed.
    void contentChanged();
    /// The image has another size now.
    void sizeChanged();
    /// The body was moved, or its move undone.
    void placeChanged();

private:
    void showNormals(const QImage &normals);

    Body &m_body;
    std::unique_ptr<NormalMapProcessor> m_processor;
    Observation m_spriteObservation;
    Observation m_positionObservation;
};
