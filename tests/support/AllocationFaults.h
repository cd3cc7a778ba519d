// AllocationFaults.h: counts, tracks and fails the process's heap allocations
// for the allocation-failure suite. Linking AllocationFaults.cpp into a
// program replaces malloc, calloc, realloc, free, strdup and strndup for the
// whole process, the shared library and json-c included; the C++ runtime's
// operator new takes its memory from malloc, so a failing malloc makes new
// throw std::bad_alloc (and the nothrow form give null). Not for sanitizer
// builds, whose runtime owns the allocator.
#ifndef ZELT_TESTS_ALLOCATIONFAULTS_H
#define ZELT_TESTS_ALLOCATIONFAULTS_H

#include <cstddef>

struct AllocationStats {
    long allocations = 0;         // allocation calls made while watching
    bool failed = false;          // whether the chosen allocation was reached and failed
    bool failedInParser = false;  // whether it failed inside json_tokener_parse
    long live = 0;                // blocks allocated while watching and not freed since
    long liveOfKeptSize = 0;      // those of them whose size is the kept size
};

// Starts watching: from now on allocations are counted and tracked, and the
// failAt-th one (1 for the next) fails; 0 fails none. keptSize names the size
// of a block that the code under test keeps on purpose, counted apart.
void StartWatchingAllocations(long failAt, std::size_t keptSize);
// Stops watching and tells what happened since the start.
AllocationStats StopWatchingAllocations();

#endif  // ZELT_TESTS_ALLOCATIONFAULTS_H
