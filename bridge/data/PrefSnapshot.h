#pragma once

#include <QString>
#include <QVector>

class HostServices;

/// Settings as they were at one moment, to be written back when the user cancels. GUI thread.
class PrefSnapshot
{
public:
    /// How the host is asked for a setting, and given it back.
    enum class Type { Int, Bool };

    /// Reads a setting now. A failure goes to the host's
    /// errorHandler(), and the setting stays out of the snapshot: what is not known is not written.
    void read(HostServices *host, const QString &key, Type type);

    /// Writes the settings back, in the order in which they were read. A failure of the host passes
    /// on, and leaves what follows as it is.
    void writeBack(HostServices *host) const;

private:
    struct Setting
    {
        QString key;
        Type type;
        int value;
    };

    QVector<Setting> m_settings;
};
