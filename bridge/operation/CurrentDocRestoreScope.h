#pragma once

#include "contract/HostTypes.h"

class HostServices;

/// Makes a document the current one again when it goes; NoDocKey leaves the current one. A failure
/// goes to the host's errorHandler(). GUI thread.
class CurrentDocRestoreScope
{
public:
    CurrentDocRestoreScope(HostServices *host, DOCKEY key);
    ~CurrentDocRestoreScope();

    CurrentDocRestoreScope(const CurrentDocRestoreScope &) = delete;
    CurrentDocRestoreScope &operator=(const CurrentDocRestoreScope &) = delete;

private:
    HostServices *m_host;
    DOCKEY m_key;
};
