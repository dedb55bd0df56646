#include "standin/host/StandInHost.h"

void StandInHost::pausePlayback()
{
    begun(m_pauses.playback, "pausePlayback");
    emit m_events.playbackPauseChanged(playbackPauses());
}

void StandInHost::resumePlayback()
{
    told("resumePlayback");
    if (m_pauses.playback.end())
        emit m_events.playbackPauseChanged(playbackPauses());
}
