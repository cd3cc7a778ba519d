#include "config/Communication.h"

namespace VextorJSConfig {

// In write order, which is also the read order. "AutoUpgradeQueryInterval"
// and "AutoupgradeURI" differ in case on purpose: the document format spells
// them so.
constexpr auto CCommunication::Members() {
    return std::make_tuple(
        KeyedMember(L"AutoUpgradeQueryInterval", &CCommunication::autoUpgradeQueryInterval_),
        KeyedMember(L"DispServerHostname", &CCommunication::dispServerHostname_),
        KeyedMember(L"LogServerHostname", &CCommunication::logServerHostname_),
        KeyedMember(L"EventLogUploadURL", &CCommunication::eventLogUploadURL_),
        KeyedMember(L"AutoupgradeURI", &CCommunication::autoupgradeURI_),
        KeyedMember(L"LogUploadInterval", &CCommunication::logUploadInterval_),
        KeyedMember(L"ManagementQueryInterval", &CCommunication::managementQueryInterval_),
        KeyedMember(L"EnablePII", &CCommunication::enablePII_));
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
    return SetRequired<&CCommunication::dispServerHostname_>(value);
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
    return SetRequired<&CCommunication::logUploadInterval_>(value);
}

DWORD CCommunication::GetManagementQueryInterval() const { return managementQueryInterval_; }
int CCommunication::SetManagementQueryInterval(const DWORD* value) {
    return SetRequired<&CCommunication::managementQueryInterval_>(value);
}

int CCommunication::GetEnablePII(DWORD* out) const { return GetOptionalDWORD(enablePII_, out); }
void CCommunication::SetEnablePII(const DWORD* value) { SetOptionalDWORD(enablePII_, value); }

ICommunication* Communication_CreateNewInstance() {
    return NewClearedElement<ICommunication, CCommunication>();
}

}  // namespace VextorJSConfig
