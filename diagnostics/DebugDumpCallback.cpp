#include "diagnostics/DebugDumpCallback.h"

#include <atomic>

namespace {
// Relaxed loads and stores are the plain moves of an unguarded pointer on
// the systems the library runs on; being atomic, a store on one thread while
// another reports is no data race, though which callback that report reaches
// is not defined.
std::atomic<DebugDumpCallback> debugDumpCallback{nullptr};
}  // namespace

DebugDumpCallback CurrentDebugDumpCallback() {
    return debugDumpCallback.load(std::memory_order_relaxed);
}

void StoreDebugDumpCallback(DebugDumpCallback callback) {
    debugDumpCallback.store(callback, std::memory_order_relaxed);
}
