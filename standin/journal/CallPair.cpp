#include "standin/journal/CallPair.h"

#include <QtDebug>

#include <utility>

CallPair::CallPair(const QString &end) : m_end(end) {}

bool CallPair::end()
{
    if (m_open > 0) {
        --m_open;
        return true;
    }
    if (m_excused > 0)
        --m_excused;
    else
        qCritical().noquote() << "end without its beginning:" << m_end;
    return false;
}

void CallPair::clear()
{
    m_excused += std::exchange(m_open, 0);
}
