#pragma once

#include <QString>
#include <QVariant>
#include <QVector>

#include <optional>

class HostServices;

/// Settings as they were at one moment, to be written back when the user cancels. GUI thread.
class PrefSnapshot
{
public:
    /// How the host is asked for a setting, and given it back; plain: as it is stored.
    enum class Type { Int, Bool, Plain };

    /// Reads a setting now. A failure goes to the host's errorHandler(), and the setting stays out
    /// of the snapshot: what is not known is not written.
    void read(HostServices *host, const QString &key, Type type);

    /// Writes the settings back, in the order in which they were read. A failure of the host passes
    /// on, and leaves what follows as it is.
    void writeBack(HostServices *host) const;

    /// A setting as it was read; none for one that is not in the snapshot.
    std::optional<QVariant> value(const QString &key) const;

private:
    struct Setting
    {
        QString key;
        Type type;
        QVariant value;
    };

    QVector<Setting> m_settings;
};
