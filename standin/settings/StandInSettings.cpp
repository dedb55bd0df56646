#include "standin/settings/StandInSettings.h"

#include "standin/settings/StandInDefaults.h"

#include <QSettings>

namespace {

QVariant typed(const QString &key, const QVariant &stored)
{
    const QVariant standard = StandInDefaults::valueOf(key);
    if (stored.type() != QVariant::String || !standard.isValid())
        return stored;
    QVariant converted = stored;
    return converted.convert(int(standard.type())) ? converted : stored;
}

}

StandInSettings::StandInSettings() = default;

StandInSettings::StandInSettings(const QString &iniFile)
    : m_file(std::make_unique<QSettings>(iniFile, QSettings::IniFormat))
{
    m_file->setIniCodec("UTF-8");
    const QStringList stored = m_file->allKeys();
    for (const QString &key : stored)
        m_values.insert(key, typed(key, m_file->value(key)));
}

StandInSettings::~StandInSettings() = default;

QVariant StandInSettings::value(const QString &key, const QVariant &defaultValue) const
{
    const auto stored = m_values.find(key);
    if (stored != m_values.end())
        return *stored;
    return defaultValue.isValid() ? defaultValue : defaultOf(key);
}

QVariant StandInSettings::defaultOf(const QString &key) const
{
    const auto own = m_ownDefaults.find(key);
    return own != m_ownDefaults.end() ? *own : StandInDefaults::valueOf(key);
}

void StandInSettings::setDefault(const QString &key, const QVariant &value)
{
    m_ownDefaults.insert(key, value);
}

void StandInSettings::setValue(const QString &key, const QVariant &value)
{
    m_values.insert(key, value);
    if (m_file && !key.isEmpty())
        m_file->setValue(key, value);
}

void StandInSettings::remove(const QString &key)
{
    m_values.remove(key);
    if (m_file && !key.isEmpty())
        m_file->remove(key); // an empty key would remove all
}

bool StandInSettings::contains(const QString &key) const
{
    return m_values.contains(key);
}

QStringList StandInSettings::keys() const
{
    return m_values.keys();
}

void StandInSettings::sync()
{
    if (m_file)
        m_file->sync();
}
