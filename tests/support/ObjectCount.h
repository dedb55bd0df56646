#pragma once

#include <QtGlobal>

class QObject;

/// Counts the objects that are made and not gone while it lives, of all modules and threads. One at
/// a time.
class ObjectCount
{
public:
    ObjectCount();
    ~ObjectCount();

    ObjectCount(const ObjectCount &) = delete;
    ObjectCount &operator=(const ObjectCount &) = delete;

    /// Made minus gone.
    int live() const;

    /// Runs what is posted and lets deleted objects and the engine's caches go.
    static void settle();
};
