#include "config/Communication.h"

#include "config/ElementMessages.h"
#include "config/MemberIO.h"

namespace VextorJSConfig {

namespace {
constexpr const wchar_t* kElementName = L"Communication";
// "AutoUpgradeQueryInterval" and "AutoupgradeURI" differ in case on purpose:
// the document format spells them so.
constexpr const wchar_t* kAutoUpgradeQueryInterval = L"AutoUpgradeQueryInterval";
constexpr const wchar_t* kDispServerHostname = L"DispServerHostname";
constexpr const wchar_t* kLogServerHostname = L"LogServerHostname";
constexpr const wchar_t* kEventLogUploadURL = L"EventLogUploadURL";
constexpr const wchar_t* kAutoupgradeURI = L"AutoupgradeURI";
constexpr const wchar_t* kLogUploadInterval = L"LogUploadInterval";
constexpr const wchar_t* kManagementQueryInterval = L"ManagementQueryInterval";
constexpr const wchar_t* kEnablePII = L"EnablePII";
}  // namespace

// The members in write order, which is also the read order: the writer and
// the reader take the same steps.
template <class Steps>
bool CCommunication::VisitMembers(Steps& steps) {
    return steps.OptionalDWORD(kAutoUpgradeQueryInterval, autoUpgradeQueryInterval_) &&
           steps.RequiredString(kDispServerHostname, dispServerHostname_) &&
           steps.OptionalString(kLogServerHostname, logServerHostname_) &&
           steps.OptionalString(kEventLogUploadURL, eventLogUploadURL_) &&
           steps.OptionalString(kAutoupgradeURI, autoupgradeURI_) &&
           steps.RequiredDWORD(kLogUploadInterval, logUploadInterval_) &&
           steps.RequiredDWORD(kManagementQueryInterval, managementQueryInterval_) &&
           steps.OptionalDWORD(kEnablePII, enablePII_);
}

CCommunication::~CCommunication() { CCommunication::Clear(); }

int CCommunication::WriteToJSONMgr(IJSONManager* mgr, JSONNode* parent, int /*flag*/) {
    JSONNode* node = CreateElementNode(mgr, parent, kElementName);
    if (node == nullptr) return ZELT_FAILED;
    MemberWriter write(mgr, node, kElementName);
    return VisitMembers(write) ? ZELT_SUCCESS : ZELT_FAILED;
}

int CCommunication::ReadFromJSONMgr(IJSONManager* mgr, JSONNode* node) {
    if (mgr == nullptr) return ReportFailure(Message::ReadNoManager());
    Clear();
    MemberReader read(mgr, node, kElementName);
    return FinishRead(*this, VisitMembers(read));
}

void CCommunication::Clear() {
    ElementType = ELEMENT_TYPE_ORDINARY;
    autoUpgradeQueryInterval_.Clear();
    dispServerHostname_.clear();
    logServerHostname_.Clear();
    eventLogUploadURL_.Clear();
    autoupgradeURI_.Clear();
    logUploadInterval_ = 0;
    managementQueryInterval_ = 0;
    enablePII_.Clear();
}

ICommunication& CCommunication::CopyFrom(const ICommunication& other) {
    if (&other == this) return *this;
    Clear();
    const auto& source = static_cast<const CCommunication&>(other);
    autoUpgradeQueryInterval_ = source.autoUpgradeQueryInterval_;
    dispServerHostname_ = source.dispServerHostname_;
    logServerHostname_ = source.logServerHostname_;
    eventLogUploadURL_ = source.eventLogUploadURL_;
    autoupgradeURI_ = source.autoupgradeURI_;
    logUploadInterval_ = source.logUploadInterval_;
    managementQueryInterval_ = source.managementQueryInterval_;
    enablePII_ = source.enablePII_;
    return *this;
}

int CCommunication::GetAutoUpgradeQueryInterval(DWORD* out) const {
    return GetOptionalDWORD(autoUpgradeQueryInterval_, out);
}
void CCommunication::SetAutoUpgradeQueryInterval(const DWORD* value) {
    SetOptionalDWORD(autoUpgradeQueryInterval_, value);
}

const std::wstring* CCommunication::GetDispServerHostname() const { return &dispServerHostname_; }
int CCommunication::SetDispServerHostname(const std::wstring* value) {
    return SetRequiredString(dispServerHostname_, value, kElementName, kDispServerHostname);
}

int CCommunication::GetLogServerHostname(std::wstring* out) const {
    return GetOptionalString(logServerHostname_, out);
}
void CCommunication::SetLogServerHostname(const std::wstring* value) {
    SetOptionalString(logServerHostname_, value);
}

int CCommunication::GetEventLogUploadURL(std::wstring* out) const {
    return GetOptionalString(eventLogUploadURL_, out);
}
void CCommunication::SetEventLogUploadURL(const std::wstring* value) {
    SetOptionalString(eventLogUploadURL_, value);
}

int CCommunication::GetAutoupgradeURI(std::wstring* out) const {
    return GetOptionalString(autoupgradeURI_, out);
}
void CCommunication::SetAutoupgradeURI(const std::wstring* value) {
    SetOptionalString(autoupgradeURI_, value);
}

DWORD CCommunication::GetLogUploadInterval() const { return logUploadInterval_; }
int CCommunication::SetLogUploadInterval(const DWORD* value) {
    return SetRequiredDWORD(logUploadInterval_, value, kElementName, kLogUploadInterval);
}

DWORD CCommunication::GetManagementQueryInterval() const { return managementQueryInterval_; }
int CCommunication::SetManagementQueryInterval(const DWORD* value) {
    return SetRequiredDWORD(managementQueryInterval_, value, kElementName,
                            kManagementQueryInterval);
}

int CCommunication::GetEnablePII(DWORD* out) const { return GetOptionalDWORD(enablePII_, out); }
void CCommunication::SetEnablePII(const DWORD* value) { SetOptionalDWORD(enablePII_, value); }

ICommunication* Communication_CreateNewInstance() {
    return NewClearedElement<ICommunication, CCommunication>();
}

}  // namespace VextorJSConfig
