#pragma once

#include <QString>

class HostServices;

/// Another program that works with this one: whether it is there. GUI thread.
class UTL_Integration
{
public:
    /// `host` outlives the object and is not owned.
    explicit UTL_Integration(HostServices *host);
    virtual ~UTL_Integration();

    /// Whether a file or folder of this name lies in the directory. False for an empty directory,
    /// without a look at the disk.
    bool exists(const QString &directory, const QString &fileName);

    HostServices *host() const { return m_host; }

private:
    HostServices *m_host;
};
