#include "config/VextorJSConfig.h"

namespace VextorJSConfig {

template class ElementBase<CVextorJSConfig, IVextorJSConfig>;

CVextorJSConfig::~CVextorJSConfig() { CVextorJSConfig::Clear(); }

JSONNode* CVextorJSConfig::CreateNode(IJSONManager* mgr, JSONNode* /*parent*/) {
    if (!HasWriteManager(mgr)) return nullptr;
    // The manager's previous document is gone from here on, whether or not
    // the rest of the write succeeds.
    JSONNode* node = mgr->CreateNewDocument() == ZELT_SUCCESS ? mgr->GetRootElement() : nullptr;
    return ElementNodeOrMessage(node, kName);
}

// The reserved pair holds no member: nothing is ever present there.
int CVextorJSConfig::ReservedSlot20(DWORD* /*out*/) const { return ZELT_NOT_PRESENT; }

void CVextorJSConfig::ReservedSlot21(const DWORD* /*value*/) {}

}  // namespace VextorJSConfig
