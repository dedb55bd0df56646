#include "standin/host/StandInHost.h"

void StandInHost::resumeLive()
{
    told("resumeLive");
    if (m_pauses.live.end())
        emit m_events.livePauseChanged(livePauses());
}

void StandInHost::pauseLiveExclusive(bool first, bool second, bool third)
{
    begun(m_pauses.live, "pauseLiveExclusive", first, second, third);
    emit m_events.livePauseChanged(livePauses());
}

void StandInHost::pauseLive(bool flag)
{
    begun(m_pauses.live, "pauseLive", flag);
    emit m_events.livePauseChanged(livePauses());
}

bool StandInHost::isLivePaused()
{
    asked("isLivePaused");
    return m_state.isLivePaused.value_or(livePauses() > 0);
}

void StandInHost::suspendView(bool flag)
{
    told("suspendView", flag);
    m_pauses.isViewSuspended = true;
}

void StandInHost::resumeView(bool flag)
{
    told("resumeView", flag);
    m_pauses.isViewSuspended = false;
}

void StandInHost::prepareLiveForPrefs()
{
    told("prepareLiveForPrefs");
}
