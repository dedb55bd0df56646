#include "contract/ViewPauseGuard.h"

#include "contract/DOC_Interface.h"
#include "contract/HostGuard.h"

#include <QMutex>

namespace {
constexpr int MutexTimeoutMsec = 1;
}

ViewPauseGuard::ViewPauseGuard(HostServices *host, bool exclusive, bool refreshDocuments)
    : m_host(host), m_exclusive(exclusive), m_refreshDocuments(refreshDocuments)
{
    try {
        enter();
    } catch (...) {
        leave();
        throw;
    }
}

ViewPauseGuard::~ViewPauseGuard()
{
    leave();
}

void ViewPauseGuard::enter()
{
    QMutex *mutex = m_host->documentsMutex();
    if (mutex->tryLock(MutexTimeoutMsec))
        m_lockedMutex = mutex;
    if (!m_host->isLiveMode()) {
        m_host->pausePlayback();
        m_playbackPaused = true;
    } else if (m_exclusive) {
        m_host->beginExclusiveUpdate();
        m_updateHeld = true;
        m_host->beginExclusiveRefresh();
        m_refreshHeld = true;
        m_host->pauseLiveExclusive(false, true, true);
        m_livePaused = true;
    } else {
        m_host->pauseLive(false);
        m_livePaused = true;
    }
}

void ViewPauseGuard::leave()
{
    if (m_playbackPaused)
        guarded(m_host, [&] { m_host->resumePlayback(); });
    if (m_livePaused) {
        if (m_refreshDocuments)
            refreshLiveDocuments();
        guarded(m_host, [&] { m_host->resumeLive(); });
    }
    if (m_updateHeld)
        guarded(m_host, [&] { m_host->endExclusiveUpdate(); });
    if (m_refreshHeld)
        guarded(m_host, [&] { m_host->endExclusiveRefresh(); });
    if (m_lockedMutex)
        m_lockedMutex->unlock();
}

void ViewPauseGuard::refreshLiveDocuments()
{
    QList<DOCKEY> keys;
    guarded(m_host, [&] {
        if (m_host->isLivePaused())
            m_host->liveDocKeys(keys, true);
    });
    for (DOCKEY key : qAsConst(keys)) {
        guarded(m_host, [&] {
            if (DOC_Interface *doc = m_host->deviceByKey(key, true))
                doc->refresh(true);
        });
    }
}
