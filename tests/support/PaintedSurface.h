#pragma once

#include "tools/PaintTool.h"

#include <QObject>
#include <QStringList>
#include <QVector>
#include <QWidget>

/// A surface that a tool paints on, as a document would take it: shows the pieces, stores what is
/// shown at a commit, and hands it back.
class PaintedSurface : public QObject
{
public:
    /// Activates @p tool, which outlives this, with an opaque texture.
    PaintedSurface(PaintTool &tool, const AngleImage &start, const FloatImage &selection = {});
    ~PaintedSurface() override;

    void press(const QPointF &at, Qt::KeyboardModifiers modifiers = {}) const;
    void moveTo(const QPointF &at, Qt::KeyboardModifiers modifiers = {}) const;
    void release(const QPointF &at, Qt::KeyboardModifiers modifiers = {}) const;
    /// Presses at the first, goes on over the others and releases.
    void paint(const QVector<QPointF> &points, Qt::KeyboardModifiers modifiers = {}) const;
    /// The stored surface becomes @p surface, as by undo.
    void replace(const AngleImage &surface);

    AngleImage stored;
    AngleImage shown;
    QVector<QRect> areas; ///< of all pieces
    QStringList commits;  ///< undo texts of all commits

private:
    PaintTool &m_tool;
};

/// 90 by 70 random slopes, only such as a sum can give.
AngleImage someSurface(unsigned seed = 1);

/// A control of the tool's panel, by its object's name.
template <class Control>
Control &control(const PaintTool &tool, const char *name)
{
    return *tool.settingsPanel()->findChild<Control *>(QLatin1String(name));
}
