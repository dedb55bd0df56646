#include "standin/host/StandInHost.h"

float StandInHost::rotation(DOCKEY key)
{
    asked("rotation", key);
    const StandInDocument *found = document(key);
    return found ? float(found->state().quarterTurns) / 4.0f : 0.0f;
}

bool StandInHost::flipHorizontal(DOCKEY key)
{
    asked("flipHorizontal", key);
    const StandInDocument *found = document(key);
    return found && found->state().isFlippedHorizontally;
}

bool StandInHost::flipVertical(DOCKEY key)
{
    asked("flipVertical", key);
    const StandInDocument *found = document(key);
    return found && found->state().isFlippedVertically;
}

float StandInHost::zoomFactor(int which)
{
    asked("zoomFactor", which);
    const StandInDocument *found = m_documents.current();
    return found ? float(found->state().zoom) : 0.0f;
}

bool StandInHost::isViewCycling()
{
    asked("isViewCycling");
    return m_state.isViewCycling;
}

bool StandInHost::isDisplayInfoShowing()
{
    asked("isDisplayInfoShowing");
    return m_state.isDisplayInfoShowing;
}

void StandInHost::setDisplayInfoShowing(bool show)
{
    told("setDisplayInfoShowing", show);
    showDisplayInfo(show);
}

void StandInHost::showDisplayInfo(bool show)
{
    if (m_state.isDisplayInfoShowing == show)
        return;
    m_state.isDisplayInfoShowing = show;
    emit m_events.displayInfoChanged(show);
}
