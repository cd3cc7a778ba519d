#include "config/VextorJSConfig.h"

#include "config/MemberIO.h"

namespace VextorJSConfig {

namespace {
constexpr const wchar_t* kElementName = L"VextorJSConfig";
constexpr const wchar_t* kClientSettingName = L"ClientSetting";
constexpr const wchar_t* kAdvancedRuleName = L"AdvancedRule";
constexpr const wchar_t* kContentUploadChannelName = L"ContentUploadChannel";
}  // namespace

// The members in write order, which is also the read order: the writer and
// the reader take the same steps.
template <class Steps>
bool CVextorJSConfig::VisitMembers(Steps& steps) {
    return steps.RequiredChild(kClientSettingName, clientSetting_) &&
           steps.RequiredChild(kAdvancedRuleName, advancedRule_) &&
           steps.RequiredChild(kContentUploadChannelName, contentUploadChannel_) &&
           steps.RequiredString(L"ProfileName", profileName_) &&
           steps.RequiredString(L"SchemaVersion", schemaVersion_) &&
           steps.RequiredString(L"AdminPassword", adminPassword_) &&
           steps.OptionalDWORD(L"EnableTrayiconMenu", enableTrayiconMenu_);
}

CVextorJSConfig::~CVextorJSConfig() { CVextorJSConfig::Clear(); }

int CVextorJSConfig::WriteToJSONMgr(IJSONManager* mgr, JSONNode* /*parent*/, int /*flag*/) {
    if (mgr == nullptr) return ReportFailure(Message::WriteNoManager());
    // The manager's previous document is gone from here on, whether or not
    // the rest of the write succeeds.
    JSONNode* node = mgr->CreateNewDocument() == ZELT_SUCCESS ? mgr->GetRootElement() : nullptr;
    if (node == nullptr) return ReportFailure(Message::ElementNodeMissing(kElementName));
    MemberWriter write(mgr, node, kElementName);
    return VisitMembers(write) ? ZELT_SUCCESS : ZELT_FAILED;
}

int CVextorJSConfig::ReadFromJSONMgr(IJSONManager* mgr, JSONNode* node) {
    if (mgr == nullptr) return ReportFailure(Message::ReadNoManager());
    Clear();
    MemberReader read(mgr, node, kElementName);
    return FinishRead(*this, VisitMembers(read));
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
    return NewClearedElement<IVextorJSConfig, CVextorJSConfig>();
}

}  // namespace VextorJSConfig
