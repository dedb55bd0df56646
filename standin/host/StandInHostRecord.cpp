#include "standin/host/StandInHost.h"

bool StandInHost::isRecording()
{
    asked("isRecording");
    return m_state.isRecording;
}

int StandInHost::recordingState()
{
    asked("recordingState");
    return m_state.recordingState;
}

bool StandInHost::hasPartitionConflict(bool flag)
{
    asked("hasPartitionConflict", flag);
    return m_state.hasPartitionConflict;
}
