#include "bridge/operation/DeterUpdateScope.h"

#include "contract/HostGuard.h"

DeterUpdateScope::DeterUpdateScope(HostServices *host) : m_host(host)
{
    m_host->deterUpdateUI(true);
}

DeterUpdateScope::~DeterUpdateScope()
{
    guarded(m_host, [&] { m_host->deterUpdateUI(false); });
}
