#pragma once

#include "support/EditorUser.h"

#include <QDir>
#include <QTemporaryDir>

/// Adds sprites, shapes them by effects and takes pictures of both, as a user does in the window,
/// which outlives it.
class EffectUser : public EditorUser
{
public:
    /// @p samples is the folder of the sprites.
    EffectUser(MainWindow &window, const QString &samples);

    /// Copies of the samples of these names, so that nothing is written beside them.
    void addSprites(const QStringList &names) const;
    QString pathOf(const QString &name) const { return m_sprites.filePath(name); }
    QDir samples() const { return m_samples; }
    void selectAll() const;
    void trigger(const QString &text) const;
    /// The dialog comes up where it hides neither sprites nor tools.
    void open(const char *effect) const;
    QWidget &dialog() const;
    void set(const char *name, double number) const;
    void apply() const;
    /// Saves @p part of the window, or all of it, with what stands over it.
    bool take(const QString &path, QRect part = {}) const;

private:
    MainWindow &m_window;
    QDir m_samples;
    QTemporaryDir m_home;
    QDir m_sprites{m_home.path()};
};
