// DebugDumpCallback.h: the process-wide debug dump callback. The exports set
// and clear it; the configuration elements deliver their failure messages to
// it.
#ifndef ZELT_DIAGNOSTICS_DEBUGDUMPCALLBACK_H
#define ZELT_DIAGNOSTICS_DEBUGDUMPCALLBACK_H

#include <zelt/Types.h>

// The callback as it stands at this moment (null when none is set). Nothing
// is locked: callers set it before their threads start using the library.
DebugDumpCallback CurrentDebugDumpCallback();
void StoreDebugDumpCallback(DebugDumpCallback callback);

#endif  // ZELT_DIAGNOSTICS_DEBUGDUMPCALLBACK_H
