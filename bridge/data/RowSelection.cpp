#include "bridge/data/RowSelection.h"

#include <QSet>

#include <algorithm>

void RowSelection::select(const QList<int> &ids)
{
    if (ids.size() == 1)
        m_current = ids.first();
    else if (ids.isEmpty())
        m_current = 0;
    else if (ids.size() > m_ids.size())
        followAdded(ids);
    else
        followRemoved(ids);
    m_ids = ids;
}

void RowSelection::followAdded(const QList<int> &ids)
{
    const QSet<int> former(m_ids.cbegin(), m_ids.cend());
    const auto isNew = [&former](int id) { return !former.contains(id); };
    const auto last = std::find_if(ids.crbegin(), ids.crend(), isNew);
    if (last != ids.crend())
        m_current = *last;
}

void RowSelection::followRemoved(const QList<int> &ids)
{
    const auto former = std::find(m_ids.cbegin(), m_ids.cend(), m_current);
    const QSet<int> left(ids.cbegin(), ids.cend());
    const auto isLeft = [&left](int id) { return left.contains(id); };
    auto next = std::find_if(former, m_ids.cend(), isLeft);
    if (next == m_ids.cend())
        next = std::find_if(m_ids.cbegin(), former, isLeft);
    m_current = next != m_ids.cend() && isLeft(*next) ? *next : ids.first();
}
