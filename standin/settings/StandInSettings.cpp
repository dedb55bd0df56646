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

StandInSettings::StandInSettings(const QString &iniFile) : m_file(iniFile)
{
    QSettings file(m_file, QSettings::IniFormat);
    file.setIniCodec("UTF-8");
    const QStringList stored = file.allKeys();
    for (const QString &key : stored)
        m_values.insert(key, typed(key, file.value(key)));
}

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

void StandInSettings::declare(const QStringList &keys)
{
    for (const QString &key : keys) {
        if (!isKnown(key))
            setDefault(key, QVariant());
    }
}

bool StandInSettings::isKnown(const QString &key) const
{
    return m_ownDefaults.contains(key) || StandInDefaults::isKnown(key);
}

// A file object of its own for each change: what failed once is not held against the next.
bool StandInSettings::write(const QString &key, const QVariant *value)
{
    if (m_file.isEmpty() || key.isEmpty()) // an empty key would stand for all
        return true;
    const auto put = [&key](QSettings &file, const QVariant *wanted) {
        if (wanted)
            file.setValue(key, *wanted);
        else
            file.remove(key);
    };
    QSettings file(m_file, QSettings::IniFormat);
    file.setIniCodec("UTF-8");
    put(file, value);
    file.sync();
    if (file.status() == QSettings::NoError)
        return true;
    const auto stored = m_values.constFind(key);
    put(file, stored != m_values.constEnd() ? &*stored : nullptr); // not with the next change
    return false;
}

bool StandInSettings::setValue(const QString &key, const QVariant &value)
{
    if (!write(key, &value))
        return false;
    m_values.insert(key, value);
    return true;
}

bool StandInSettings::remove(const QString &key)
{
    if (!write(key, nullptr))
        return false;
    m_values.remove(key);
    return true;
}

bool StandInSettings::contains(const QString &key) const
{
    return m_values.contains(key);
}

QStringList StandInSettings::keys() const
{
    return m_values.keys();
}
