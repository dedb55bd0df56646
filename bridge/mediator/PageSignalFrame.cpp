#include "bridge/mediator/PageSignalFrame.h"

PageSignalFrame::PageSignalFrame(const std::function<void()> &emission) : m_emission(emission) {}

void PageSignalFrame::rethrow() const
{
    if (m_failure)
        std::rethrow_exception(m_failure);
}

void PageSignalFrame::run()
{
    if (m_hasRun)
        return; // a page that kept the object cannot send again
    m_hasRun = true;
    try {
        m_emission();
    } catch (...) {
        m_failure = std::current_exception(); // no failure crosses the script
    }
}
