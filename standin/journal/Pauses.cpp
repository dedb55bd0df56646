#include "standin/journal/Pauses.h"

#include <utility>

void Pauses::holdBack(const Refresh &refresh)
{
    m_heldBack.flags |= refresh.flags;
    m_heldBack.send = m_heldBack.send || refresh.send;
}

Pauses::Refresh Pauses::takeHeldBack()
{
    return std::exchange(m_heldBack, Refresh());
}
