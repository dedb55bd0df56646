#include "standin/host/StandInHost.h"

void StandInHost::pausePlayback()
{
    told("pausePlayback");
    emit m_events.playbackPauseChanged(++m_playbackPauses);
}

void StandInHost::resumePlayback()
{
    told("resumePlayback");
    emit m_events.playbackPauseChanged(--m_playbackPauses);
}
