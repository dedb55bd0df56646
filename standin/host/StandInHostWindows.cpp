#include "standin/host/StandInHost.h"

int StandInHost::countMdiWindow(bool visible, int number)
{
    asked("countMdiWindow", visible, number);
    const int all = m_state.windowCount.value_or(m_documents.count());
    return visible ? m_state.visibleWindowCount.value_or(all) : all;
}

QString StandInHost::currentWindowTitle()
{
    asked("currentWindowTitle");
    const StandInDocument *found = m_documents.current();
    return found ? found->state().displayName : QString();
}

bool StandInHost::isFullScreen()
{
    asked("isFullScreen");
    return m_state.isFullScreen;
}

bool StandInHost::isActiveOnTrelvik()
{
    asked("isActiveOnTrelvik");
    return m_state.isActiveOnTrelvik;
}

void StandInHost::showAllDocuments()
{
    told("showAllDocuments");
}
