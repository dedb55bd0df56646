#pragma once

#include <Qt>

/// The application's override cursor as far as one tool has set it: a tool takes back no more than
/// it has set, and nothing of it outlives the tool. GUI thread.
class RegionCursor
{
public:
    RegionCursor() = default;
    ~RegionCursor();

    RegionCursor(const RegionCursor &) = delete;
    RegionCursor &operator=(const RegionCursor &) = delete;

    /// Shows one of the sizing cursors in place of the one that it showed before.
    void show(Qt::CursorShape shape);

    /// Restores what was there before show(); does nothing without one.
    void restore();

private:
    bool m_set = false;
};
