#include "standin/settings/StandInSettings.h"

#include "foundation/Keys.h"
#include "foundation/ReplaceFile.h"
#include "standin/settings/IniText.h"
#include "standin/settings/StandInDefaults.h"

#include <QDir>
#include <QFileInfo>
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

void StandInSettings::setSaveFolder(const QString &folder)
{
    for (const Keys::SaveKeys *keys : {&Keys::exportSave, &Keys::convertSave, &Keys::snapSave,
                                       &Keys::reportSave, &Keys::layoutSave})
        setDefault(keys->dir, folder);
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

bool StandInSettings::take(const QMap<QString, QVariant> &values)
{
    if (!m_file.isEmpty() && values != m_values) {
        QMap<QString, QVariant> stored = values;
        stored.remove(QString()); // a file has no place for it
        QDir().mkpath(QFileInfo(m_file).path());
        const auto outcome = ReplaceFile::write(m_file, IniText::text(stored));
        if (outcome.result != ReplaceFile::Result::Written)
            return false;
    }
    m_values = values;
    return true;
}

bool StandInSettings::setValue(const QString &key, const QVariant &value)
{
    return setValues({{key, value}});
}

bool StandInSettings::setValues(const QMap<QString, QVariant> &changed)
{
    QMap<QString, QVariant> values = m_values;
    for (auto entry = changed.cbegin(); entry != changed.cend(); ++entry)
        values.insert(entry.key(), *entry);
    return take(values);
}

bool StandInSettings::remove(const QString &key)
{
    QMap<QString, QVariant> values = m_values;
    values.remove(key);
    return take(values);
}

bool StandInSettings::contains(const QString &key) const
{
    return m_values.contains(key);
}

QStringList StandInSettings::keys() const
{
    return m_values.keys();
}
