#include "bridge/operation/CurrentDocRestoreScope.h"

#include "contract/HostGuard.h"

CurrentDocRestoreScope::CurrentDocRestoreScope(HostServices *host, DOCKEY key)
    : m_host(host), m_key(key)
{
}

CurrentDocRestoreScope::~CurrentDocRestoreScope()
{
    if (m_key != NoDocKey)
        guarded(m_host, [&] { m_host->setCurrentDoc(m_key, true); });
}
