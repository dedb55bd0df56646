#pragma once

#include <QMap>
#include <QVariant>

#include <memory>

class QSettings;

/// The host's settings by key, in memory, and in an INI file when there is one. Keys are
/// case-sensitive. A value that comes from the file as text gets the type of its default in the
/// catalogue.
class StandInSettings
{
public:
    /// In memory only.
    StandInSettings();

    /// Reads the file and writes every change to it. A file that does not exist is made with the
    /// first change.
    explicit StandInSettings(const QString &iniFile);
    ~StandInSettings();

    /// The stored value; without one `defaultValue`; when that is invalid the catalogue's default.
    QVariant value(const QString &key, const QVariant &defaultValue) const;

    /// The catalogue's default, invalid without one. Tests can set another for one of their own.
    QVariant defaultOf(const QString &key) const;
    void setDefault(const QString &key, const QVariant &value);

    void setValue(const QString &key, const QVariant &value);

    /// Deletes the stored value, so that the default shows again.
    void remove(const QString &key);

    bool contains(const QString &key) const;

    /// Keys of all stored values, in ascending order.
    QStringList keys() const;

    /// Writes what has not reached the file yet.
    void sync();

private:
    QMap<QString, QVariant> m_values;
    QMap<QString, QVariant> m_ownDefaults;
    std::unique_ptr<QSettings> m_file;
};
