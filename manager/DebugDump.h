// DebugDump.h: the process-wide debug dump callback through which the
// configuration elements report their failures.
#ifndef ZELT_MANAGER_DEBUGDUMP_H
#define ZELT_MANAGER_DEBUGDUMP_H

#include <zelt/Types.h>

// The callback as it stands at this moment (null when none is set). Nothing
// is locked: callers set it before their threads start using the library.
DebugDumpCallback CurrentDebugDumpCallback();
void StoreDebugDumpCallback(DebugDumpCallback callback);

#endif  // ZELT_MANAGER_DEBUGDUMP_H
