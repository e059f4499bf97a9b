#pragma once

#include "EffectUser.h"
#include "Painter.h"

#include <QDir>
#include <QPair>
#include <QVector>

class Body;

constexpr int pageWidth = 640; // what a page of the guide shows without a scroll bar
constexpr int third = 208;
constexpr int quarter = 154;

enum Mode { Texture = Qt::Key_1, LitSurface, LitTexture, NormalMap };

/// Sets up the window for the pictures of the guide and takes them. The window outlives it.
class GuideStage
{
public:
    /// Numbers of an effect's dialog, by the names of their objects.
    using Settings = QVector<QPair<const char *, double>>;

    /// Pictures go to @p folder, which is made.
    GuideStage(MainWindow &window, const QString &samples, const QString &folder);

    MainWindow &window() const { return m_window; }
    const Painter &painter() const { return m_painter; }
    const EffectUser &effects() const { return m_effects; }
    QWidget &editor() const;
    Body &body() const;
    /// Whether all pictures so far were saved.
    bool isComplete() const { return m_isComplete; }

    /// A new project of samples, or of a sprite that was drawn.
    void begin(const QStringList &names);
    void beginSample(const char *name);
    void begin(const QImage &sprite);
    /// The first sprite gets the surface of a sample.
    void wearSample(const char *name);
    /// In pixels from the upper left corner of all sprites.
    void lightAt(const QPointF &place) const;
    void set(const Settings &settings) const;
    void check(const QString &name) const;

    // Pictures by the names of their files.
    /// The settings in an effect's dialog beside what they make; discarded.
    void effect(const char *effect, const Settings &settings, const char *name);
    void effectTile(const char *effect, const Settings &settings, const char *name);
    /// The dialog of an action.
    void dialog(const QString &action, const char *name);
    /// The sprite and the tools beside it, with some more room for their settings.
    void tool(const char *name, int room = 0);
    /// The sprite alone, as large as fits in a square.
    void tile(const char *name, Mode mode, int side);
    void take(const char *name, const QRect &part);
    void takeWidget(QWidget &widget, const char *name);
    void save(const QImage &picture, const char *name);

private:
    QString file(const char *name) const;

    MainWindow &m_window;
    Painter m_painter;
    EffectUser m_effects;
    QDir m_folder;
    int m_drawn = 0;
    bool m_isComplete = true;
};
