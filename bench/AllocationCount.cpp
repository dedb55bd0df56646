#include "bench/AllocationCount.h"

#include <atomic>
#include <cstddef>

// The C library calls its own allocator by these names; a program's own malloc goes before them.
extern "C" {
void *__libc_malloc(size_t size);
void *__libc_calloc(size_t count, size_t size);
void *__libc_realloc(void *memory, size_t size);
}

namespace {

std::atomic<long> allocations{0};

void count()
{
    allocations.fetch_add(1, std::memory_order_relaxed);
}

}

extern "C" {

__attribute__((visibility("default"))) void *malloc(size_t size)
{
    count();
    return __libc_malloc(size);
}

__attribute__((visibility("default"))) void *calloc(size_t number, size_t size)
{
    count();
    return __libc_calloc(number, size);
}

__attribute__((visibility("default"))) void *realloc(void *memory, size_t size)
{
    count();
    return __libc_realloc(memory, size);
}
}

namespace AllocationCount {

long total()
{
    return allocations.load(std::memory_order_relaxed);
}

}
