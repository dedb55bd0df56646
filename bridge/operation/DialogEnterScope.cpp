#include "bridge/operation/DialogEnterScope.h"

#include "contract/HostGuard.h"

DialogEnterScope::DialogEnterScope(HostServices *host) : m_host(host)
{
    if (!m_host->needsDialogEnterNotice())
        return;
    m_host->notifyDialogEntered();
    m_notifiedHost = true;
}

DialogEnterScope::~DialogEnterScope()
{
    if (!m_notifiedHost)
        return;
    guarded(m_host, [&] {
        if (!m_host->isDialogExitSuppressed())
            m_host->notifyDialogLeft();
    });
}
