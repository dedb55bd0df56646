#include "tests/support/MemoryUse.h"

#include "tests/support/ObjectCount.h"

#include <QFile>

#include <malloc.h>
#include <unistd.h>

namespace {

constexpr double Megabyte = 1024 * 1024;

// What one collection of the engine frees lets the next one free more.
constexpr int Collections = 4;

double residentPages()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ').value(1).toDouble() : 0.0;
}

}

MemoryUse MemoryUse::now()
{
    for (int i = 0; i < Collections; ++i)
        ObjectCount::settle();
    malloc_trim(0);
    const struct mallinfo2 heap = mallinfo2();
    return {double(heap.uordblks + heap.hblkhd) / Megabyte,
            residentPages() * double(sysconf(_SC_PAGESIZE)) / Megabyte};
}
