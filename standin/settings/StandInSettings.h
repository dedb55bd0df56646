#pragma once

#include <QMap>
#include <QVariant>

/// The host's settings by key, in memory, and in an INI file when there is one. Keys are
/// case-sensitive. A value that comes from the file as text gets the type of its default in the
/// catalogue.
class StandInSettings
{
public:
    /// In memory only.
    StandInSettings();

    /// Reads the file and writes every change to it at once. A file that does not exist is made
    /// with the first change.
    explicit StandInSettings(const QString &iniFile);

    /// The stored value; without one `defaultValue`; when that is invalid the catalogue's default.
    QVariant value(const QString &key, const QVariant &defaultValue) const;

    /// The catalogue's default, invalid without one. Tests and user interfaces can set another one,
    /// which also makes a key of their own known.
    QVariant defaultOf(const QString &key) const;
    void setDefault(const QString &key, const QVariant &value);

    /// Makes all kinds of save begin in a folder, in place of the user's own.
    void setSaveFolder(const QString &folder);

    /// Makes keys of tests and user interfaces known, without a default.
    void declare(const QStringList &keys);

    /// Whether a setting stands in the catalogue or was declared.
    bool isKnown(const QString &key) const;

    /// Stores the value, in the file at once; false when the file cannot be written, and then the
    /// value stays what it was.
    bool setValue(const QString &key, const QVariant &value);

    /// Stores many values by their keys, in one write; false as above, and then none is stored.
    bool setValues(const QMap<QString, QVariant> &changed);

    /// Deletes the stored value, so that the default shows again; false as above.
    bool remove(const QString &key);

    bool contains(const QString &key) const;

    /// Keys of all stored values, in ascending order.
    QStringList keys() const;

private:
    bool take(const QMap<QString, QVariant> &values);

    QMap<QString, QVariant> m_values;
    QMap<QString, QVariant> m_ownDefaults;
    QString m_file; ///< path; empty: in memory only
};
