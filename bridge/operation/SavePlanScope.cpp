#include "bridge/operation/SavePlanScope.h"

#include "contract/HostGuard.h"

SavePlanScope::SavePlanScope(HostServices *host, Clear clear) : m_host(host), m_clear(clear) {}

SavePlanScope::~SavePlanScope()
{
    guarded(m_host, [this] { m_host->clearPlannedGroupDir(); });
    if (m_clear == Clear::GroupDir)
        return;
    guarded(m_host, [this] { m_host->clearPlannedDirs(); });
    guarded(m_host, [this] { m_host->clearPlannedFiles(); });
}
