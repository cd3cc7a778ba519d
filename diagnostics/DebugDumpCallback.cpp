#include "diagnostics/DebugDumpCallback.h"

namespace {
DebugDumpCallback debugDumpCallback = nullptr;
}

DebugDumpCallback CurrentDebugDumpCallback() { return debugDumpCallback; }

void StoreDebugDumpCallback(DebugDumpCallback callback) { debugDumpCallback = callback; }
