#include "config/VextorJSConfig.h"

#include "config/MemberIO.h"

namespace VextorJSConfig {

namespace {
constexpr const wchar_t* kElementName = L"VextorJSConfig";
constexpr const wchar_t* kClientSettingName = L"ClientSetting";
constexpr const wchar_t* kAdvancedRuleName = L"AdvancedRule";
constexpr const wchar_t* kContentUploadChannelName = L"ContentUploadChannel";
}  // namespace

CVextorJSConfig::~CVextorJSConfig() { CVextorJSConfig::Clear(); }

int CVextorJSConfig::WriteToJSONMgr(IJSONManager* mgr, JSONNode* /*parent*/, int /*flag*/) {
    if (mgr == nullptr) return ReportFailure(Message::WriteNoManager());
    // The manager's previous document is gone from here on, whether or not
    // the rest of the write succeeds.
    JSONNode* node = mgr->CreateNewDocument() == ZELT_SUCCESS ? mgr->GetRootElement() : nullptr;
    if (node == nullptr) return ReportFailure(Message::ElementNodeMissing(kElementName));
    MemberWriter write(mgr, node, kElementName);
    const bool complete = write.RequiredChild(kClientSettingName, clientSetting_) &&
                          write.RequiredChild(kAdvancedRuleName, advancedRule_) &&
                          write.RequiredChild(kContentUploadChannelName, contentUploadChannel_) &&
                          write.RequiredString(L"ProfileName", profileName_) &&
                          write.RequiredString(L"SchemaVersion", schemaVersion_) &&
                          write.RequiredString(L"AdminPassword", adminPassword_) &&
                          write.OptionalDWORD(L"EnableTrayiconMenu", enableTrayiconMenu_);
    return complete ? ZELT_SUCCESS : ZELT_FAILED;
}

int CVextorJSConfig::ReadFromJSONMgr(IJSONManager* mgr, JSONNode* node) {
    if (mgr == nullptr) return ReportFailure(Message::ReadNoManager());
    Clear();
    MemberReader read(mgr, node, kElementName);
    const bool complete = read.RequiredChild(kClientSettingName, clientSetting_) &&
                          read.RequiredChild(kAdvancedRuleName, advancedRule_) &&
                          read.RequiredChild(kContentUploadChannelName, contentUploadChannel_) &&
                          read.RequiredString(L"ProfileName", profileName_) &&
                          read.RequiredString(L"SchemaVersion", schemaVersion_) &&
                          read.RequiredString(L"AdminPassword", adminPassword_) &&
                          read.OptionalDWORD(L"EnableTrayiconMenu", enableTrayiconMenu_);
    return FinishRead(*this, complete);
}

void CVextorJSConfig::Clear() {
    ElementType = ELEMENT_TYPE_ORDINARY;
    clientSetting_.Clear();
    advancedRule_.Clear();
    contentUploadChannel_.Clear();
    profileName_.clear();
    schemaVersion_.clear();
    adminPassword_.clear();
    enableTrayiconMenu_.Clear();
}

IVextorJSConfig& CVextorJSConfig::CopyFrom(const IVextorJSConfig& other) {
    if (&other == this) return *this;
    const auto& source = static_cast<const CVextorJSConfig&>(other);
    Clear();
    clientSetting_.CopyFrom(source.clientSetting_);
    advancedRule_.CopyFrom(source.advancedRule_);
    contentUploadChannel_.CopyFrom(source.contentUploadChannel_);
    profileName_ = source.profileName_;
    schemaVersion_ = source.schemaVersion_;
    adminPassword_ = source.adminPassword_;
    enableTrayiconMenu_ = source.enableTrayiconMenu_;
    return *this;
}

int CVextorJSConfig::SetClientSetting(const IClientSetting* value) {
    return SetRequiredChild(clientSetting_, value, kClientSettingName);
}

int CVextorJSConfig::SetAdvancedRule(const IAdvancedRule* value) {
    return SetRequiredChild(advancedRule_, value, kAdvancedRuleName);
}

int CVextorJSConfig::SetContentUploadChannel(const IContentUploadChannel* value) {
    return SetRequiredChild(contentUploadChannel_, value, kContentUploadChannelName);
}

int CVextorJSConfig::SetProfileName(const std::wstring* value) {
    return SetRequiredString(profileName_, value, kElementName, L"ProfileName");
}

int CVextorJSConfig::SetSchemaVersion(const std::wstring* value) {
    return SetRequiredString(schemaVersion_, value, kElementName, L"SchemaVersion");
}

int CVextorJSConfig::SetAdminPassword(const std::wstring* value) {
    return SetRequiredString(adminPassword_, value, kElementName, L"AdminPassword");
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
    IVextorJSConfig* element = new CVextorJSConfig();
    element->Clear();
    return element;
}

}  // namespace VextorJSConfig
