// The library's exported entry points of the manager family.
#include "diagnostics/DebugDumpCallback.h"
#include "manager/JSONManager.h"

#include <new>

IJSONManager* zeltCreateJSONManager(char* utf8Text, int length) {
    CJSONManager* manager = new (std::nothrow) CJSONManager();
    if (manager == nullptr) return nullptr;
    if (utf8Text == nullptr || length == 0) return manager;
    try {
        // A text that does not import still gives a manager, with no document.
        manager->CJSONManager::ImportFromJSONString(utf8Text, length);
    } catch (...) {
        delete manager;
        throw;
    }
    return manager;
}

void zeltDestroyJSONManager(IJSONManager* manager) {
    // Destroying any manager switches debug reporting off for the process;
    // callers rely on this coupling.
    StoreDebugDumpCallback(nullptr);
    delete manager;
}

void SetZeltDebugDumpCallBack(DebugDumpCallback callback) { StoreDebugDumpCallback(callback); }
