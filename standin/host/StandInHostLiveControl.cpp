#include "standin/host/StandInHost.h"

void StandInHost::resumeLive()
{
    told("resumeLive");
    emit m_events.livePauseChanged(--m_livePauses);
}

void StandInHost::pauseLiveExclusive(bool first, bool second, bool third)
{
    told("pauseLiveExclusive", first, second, third);
    emit m_events.livePauseChanged(++m_livePauses);
}

void StandInHost::pauseLive(bool flag)
{
    told("pauseLive", flag);
    emit m_events.livePauseChanged(++m_livePauses);
}

bool StandInHost::isLivePaused()
{
    asked("isLivePaused");
    return m_state.isLivePaused.value_or(m_livePauses > 0);
}

void StandInHost::suspendView(bool flag)
{
    told("suspendView", flag);
    ++m_viewSuspensions;
}

void StandInHost::resumeView(bool flag)
{
    told("resumeView", flag);
    --m_viewSuspensions;
}

void StandInHost::prepareLiveForPrefs()
{
    told("prepareLiveForPrefs");
}
