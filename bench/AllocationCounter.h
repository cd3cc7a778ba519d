// AllocationCounter.h: the heap in use and its peak, counted over every
// allocation of the process (C++ new, json-c and the C library alike). Link
// AllocationCounter.cpp into a program to replace its allocator entry points
// with counting ones; the program must be single-threaded.
#ifndef ZELT_BENCH_ALLOCATIONCOUNTER_H
#define ZELT_BENCH_ALLOCATIONCOUNTER_H

#include <cstddef>

namespace zelt_bench {

// Bytes of the blocks that are allocated now, each counted as its usable
// size plus the allocator's header of one word.
std::size_t HeapInUse();
// The highest HeapInUse since the last ResetHeapPeak.
std::size_t HeapPeak();
void ResetHeapPeak();

}  // namespace zelt_bench

#endif  // ZELT_BENCH_ALLOCATIONCOUNTER_H
