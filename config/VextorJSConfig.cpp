#include "config/VextorJSConfig.h"

namespace VextorJSConfig {

namespace {
constexpr const wchar_t* kProfileName = L"ProfileName";
constexpr const wchar_t* kSchemaVersion = L"SchemaVersion";
constexpr const wchar_t* kAdminPassword = L"AdminPassword";
constexpr const wchar_t* kEnableTrayiconMenu = L"EnableTrayiconMenu";
}  // namespace

// In write order, which is also the read order: the children first.
auto CVextorJSConfig::Members() {
    return std::make_tuple(
        KeyedMember(CClientSetting::kName, &CVextorJSConfig::clientSetting_),
        KeyedMember(CAdvancedRule::kName, &CVextorJSConfig::advancedRule_),
        KeyedMember(CContentUploadChannel::kName, &CVextorJSConfig::contentUploadChannel_),
        KeyedMember(kProfileName, &CVextorJSConfig::profileName_),
        KeyedMember(kSchemaVersion, &CVextorJSConfig::schemaVersion_),
        KeyedMember(kAdminPassword, &CVextorJSConfig::adminPassword_),
        KeyedMember(kEnableTrayiconMenu, &CVextorJSConfig::enableTrayiconMenu_));
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
    return SetRequiredChild(clientSetting_, value, CClientSetting::kName);
}

int CVextorJSConfig::SetAdvancedRule(const IAdvancedRule* value) {
    return SetRequiredChild(advancedRule_, value, CAdvancedRule::kName);
}

int CVextorJSConfig::SetContentUploadChannel(const IContentUploadChannel* value) {
    return SetRequiredChild(contentUploadChannel_, value, CContentUploadChannel::kName);
}

int CVextorJSConfig::SetProfileName(const std::wstring* value) {
    return SetRequiredString(profileName_, value, kName, kProfileName);
}

int CVextorJSConfig::SetSchemaVersion(const std::wstring* value) {
    return SetRequiredString(schemaVersion_, value, kName, kSchemaVersion);
}

int CVextorJSConfig::SetAdminPassword(const std::wstring* value) {
    return SetRequiredString(adminPassword_, value, kName, kAdminPassword);
}

int CVextorJSConfig::GetEnableTrayiconMenu(DWORD* out) const {
    return GetOptionalDWORD(enableTrayiconMenu_, out);
}

void CVextorJSConfig::SetEnableTrayiconMenu(const DWORD* value) {
    SetOptionalDWORD(enableTrayiconMenu_, value);
}

// The reserved pair holds no member: nothing is ever present there.
int CVextorJSConfig::ReservedSlot20(DWORD* /*out*/) const { return ZELT_NOT_PRESENT; }

void CVextorJSConfig::ReservedSlot21(const DWORD* /*value*/) {}

IVextorJSConfig* VextorJSConfig_CreateNewInstance() {
    return NewClearedElement<IVextorJSConfig, CVextorJSConfig>();
}

}  // namespace VextorJSConfig
