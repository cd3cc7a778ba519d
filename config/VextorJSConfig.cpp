#include "config/VextorJSConfig.h"

namespace VextorJSConfig {

// In write order, which is also the read order: the children first.
constexpr auto CVextorJSConfig::Members() {
    return std::make_tuple(
        KeyedMember(CClientSetting::kName, &CVextorJSConfig::clientSetting_),
        KeyedMember(CAdvancedRule::kName, &CVextorJSConfig::advancedRule_),
        KeyedMember(CContentUploadChannel::kName, &CVextorJSConfig::contentUploadChannel_),
        KeyedMember(L"ProfileName", &CVextorJSConfig::profileName_),
        KeyedMember(L"SchemaVersion", &CVextorJSConfig::schemaVersion_),
        KeyedMember(L"AdminPassword", &CVextorJSConfig::adminPassword_),
        KeyedMember(L"EnableTrayiconMenu", &CVextorJSConfig::enableTrayiconMenu_));
}

JSONNode* CVextorJSConfig::CreateNode(IJSONManager* mgr, JSONNode* /*parent*/) {
    if (mgr == nullptr) {
        DeliverMessage(Message::WriteNoManager());
        return nullptr;
    }
    // The manager's previous document is gone from here on, whether or not
    // the rest of the write succeeds.
    JSONNode* node = mgr->CreateNewDocument() == ZELT_SUCCESS ? mgr->GetRootElement() : nullptr;
    if (node == nullptr) DeliverMessage(Message::ElementNodeMissing(kName));
    return node;
}

template class ElementBase<CVextorJSConfig, IVextorJSConfig>;

int CVextorJSConfig::SetClientSetting(const IClientSetting* value) {
    return SetRequired<&CVextorJSConfig::clientSetting_>(value);
}

int CVextorJSConfig::SetAdvancedRule(const IAdvancedRule* value) {
    return SetRequired<&CVextorJSConfig::advancedRule_>(value);
}

int CVextorJSConfig::SetContentUploadChannel(const IContentUploadChannel* value) {
    return SetRequired<&CVextorJSConfig::contentUploadChannel_>(value);
}

int CVextorJSConfig::SetProfileName(const std::wstring* value) {
    return SetRequired<&CVextorJSConfig::profileName_>(value);
}

int CVextorJSConfig::SetSchemaVersion(const std::wstring* value) {
    return SetRequired<&CVextorJSConfig::schemaVersion_>(value);
}

int CVextorJSConfig::SetAdminPassword(const std::wstring* value) {
    return SetRequired<&CVextorJSConfig::adminPassword_>(value);
}

// The reserved pair holds no member: nothing is ever present there.
int CVextorJSConfig::ReservedSlot20(DWORD* /*out*/) const { return ZELT_NOT_PRESENT; }

void CVextorJSConfig::ReservedSlot21(const DWORD* /*value*/) {}

IVextorJSConfig* VextorJSConfig_CreateNewInstance() {
    return NewClearedElement<IVextorJSConfig, CVextorJSConfig>();
}

}  // namespace VextorJSConfig
