#pragma once

/// What the process holds, in megabytes.
struct MemoryUse
{
    double heap;     ///< in use
    double resident; ///< its share of the machine's memory

    /// Now, when deleted objects and the engine's caches have gone, and what is free has gone back
    /// to the system. Says nothing under a sanitizer, which keeps the heap itself.
    static MemoryUse now();
};
