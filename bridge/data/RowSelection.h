#pragma once

#include <QList>

/// The rows that are selected on a page, and the one among them that is current: the one whose
/// values the page shows. Rows are known by numbers that mean nothing here, but 0 is none.
class RowSelection
{
public:
    /// Takes the rows that are selected now, in the page's order. A single row becomes current, and
    /// so does the last that has come when there are more than before. Otherwise the current row
    /// stays while it is selected; where it has gone, the next one of the former rows that is left
    /// follows, from the first again behind the last, or else the first of `ids`.
    void select(const QList<int> &ids);

    const QList<int> &ids() const { return m_ids; }

    /// 0 when no row is selected.
    int current() const { return m_current; }

private:
    void followAdded(const QList<int> &ids);
    void followRemoved(const QList<int> &ids);

    QList<int> m_ids;
    int m_current = 0;
};
