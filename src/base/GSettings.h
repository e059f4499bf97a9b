#pragma once

#include <QString>
#include <QVariant>
#include <QVariantMap>

#include <memory>

class QSettings;

/// What the program remembers between runs, under keys such as "lastSpriteImportPath". Passed to
/// whoever needs it; the default-made store lives in memory only.
class GSettings
{
public:
    GSettings();
    /// Remembers in @p store, the platform's place for settings.
    explicit GSettings(std::unique_ptr<QSettings> store);
    ~GSettings();
    GSettings(const GSettings &) = delete;
    GSettings &operator=(const GSettings &) = delete;

    QVariant value(const QString &key, const QVariant &fallback = {}) const;
    void setValue(const QString &key, const QVariant &value);
    /// Forgets @p key and all keys below it, as "a/b" is below "a".
    void remove(const QString &key);
    /// Writes what is still to be written to the store.
    void flush();
    /// Forgets everything.
    void clear();

private:
    std::unique_ptr<QSettings> m_store;
    QVariantMap m_memory;
};
