#include "base/GSettings.h"

#include <QSettings>

GSettings::GSettings() = default;

GSettings::GSettings(std::unique_ptr<QSettings> store)
    : m_store(std::move(store))
{
}

GSettings::~GSettings() = default;

QVariant GSettings::value(const QString &key, const QVariant &fallback) const
{
    return m_store ? m_store->value(key, fallback) : m_memory.value(key, fallback);
}

void GSettings::setValue(const QString &key, const QVariant &value)
{
    if (m_store)
        m_store->setValue(key, value);
    else
        m_memory.insert(key, value);
}

void GSettings::remove(const QString &key)
{
    if (m_store)
        m_store->remove(key);
    m_memory.remove(key);
    const QString folder = key + QLatin1Char('/');
    auto next = m_memory.lowerBound(folder);
    while (next != m_memory.end() && next.key().startsWith(folder))
        next = m_memory.erase(next);
}

void GSettings::flush()
{
    if (m_store)
        m_store->sync();
}

void GSettings::clear()
{
    if (m_store)
        m_store->clear();
    m_memory.clear();
}
