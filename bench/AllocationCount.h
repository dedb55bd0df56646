#pragma once

/// Memory allocations of this process, those of the libraries included: calls of malloc, calloc and
/// realloc since it started. Any thread.
namespace AllocationCount {

long total();

}
