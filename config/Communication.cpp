#include "config/Communication.h"

namespace VextorJSConfig {

namespace {
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

// In write order, which is also the read order.
auto CCommunication::Members() {
    return std::make_tuple(
        KeyedMember(kAutoUpgradeQueryInterval, &CCommunication::autoUpgradeQueryInterval_),
        KeyedMember(kDispServerHostname, &CCommunication::dispServerHostname_),
        KeyedMember(kLogServerHostname, &CCommunication::logServerHostname_),
        KeyedMember(kEventLogUploadURL, &CCommunication::eventLogUploadURL_),
        KeyedMember(kAutoupgradeURI, &CCommunication::autoupgradeURI_),
        KeyedMember(kLogUploadInterval, &CCommunication::logUploadInterval_),
        KeyedMember(kManagementQueryInterval, &CCommunication::managementQueryInterval_),
        KeyedMember(kEnablePII, &CCommunication::enablePII_));
}

template class ElementBase<CCommunication, ICommunication>;

int CCommunication::GetAutoUpgradeQueryInterval(DWORD* out) const {
    return GetOptionalDWORD(autoUpgradeQueryInterval_, out);
}
void CCommunication::SetAutoUpgradeQueryInterval(const DWORD* value) {
    SetOptionalDWORD(autoUpgradeQueryInterval_, value);
}

const std::wstring* CCommunication::GetDispServerHostname() const { return &dispServerHostname_; }
int CCommunication::SetDispServerHostname(const std::wstring* value) {
    return SetRequiredString(dispServerHostname_, value, kName, kDispServerHostname);
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
    return SetRequiredDWORD(logUploadInterval_, value, kName, kLogUploadInterval);
}

DWORD CCommunication::GetManagementQueryInterval() const { return managementQueryInterval_; }
int CCommunication::SetManagementQueryInterval(const DWORD* value) {
    return SetRequiredDWORD(managementQueryInterval_, value, kName, kManagementQueryInterval);
}

int CCommunication::GetEnablePII(DWORD* out) const { return GetOptionalDWORD(enablePII_, out); }
void CCommunication::SetEnablePII(const DWORD* value) { SetOptionalDWORD(enablePII_, value); }

ICommunication* Communication_CreateNewInstance() {
    return NewClearedElement<ICommunication, CCommunication>();
}

}  // namespace VextorJSConfig
