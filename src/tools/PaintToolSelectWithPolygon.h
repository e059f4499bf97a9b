#pragma once

#include "tools/LassoPreview.h"
#include "tools/PaintToolSelect.h"

#include <QPolygon>

/// The polygonal lasso: selects what lies in a polygon, whose corners are clicked one by one.
class PaintToolSelectWithPolygon : public PaintToolSelect
{
    Q_OBJECT

public:
    explicit PaintToolSelectWithPolygon(QObject *parent = nullptr);

    void deactivate() override;
    void keyPress(int key, Qt::KeyboardModifiers modifiers) override;
    QString stepBackText() const override;
    /// Takes the last corner back, as Backspace does.
    void stepBack() override;
    QGraphicsItem *overlayItem() const override { return m_preview.item(); }

public Q_SLOTS:
    /// Another size ends an open polygon.
    void updateTexture(QImage image) override;

protected:
    void pressAt(const QPoint &pixel) override;
    void moveTo(const QPoint &pixel, bool isHeld) override;
    void doubleClickAt(const QPoint &pixel) override;

private:
    void begin();
    void close();
    void closeIfArea();
    void cancel();
    void show();
    /// Whether a click at @p pixel closes the polygon, which is open.
    bool isClosing(const QPoint &pixel) const;

    QPolygon m_polygon; ///< in pixels of the sprite; empty while none is open
    QPoint m_pointer;   ///< the end of the rubber band
    bool m_isSubtracting = false;
    LassoPreview m_preview;
};
