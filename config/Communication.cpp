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

int CCommunication::SetDispServerHostname(const std::wstring* value) {
    return SetRequired<&CCommunication::dispServerHostname_>(value);
}

int CCommunication::SetLogUploadInterval(const DWORD* value) {
    return SetRequired<&CCommunication::logUploadInterval_>(value);
}

int CCommunication::SetManagementQueryInterval(const DWORD* value) {
    return SetRequired<&CCommunication::managementQueryInterval_>(value);
}

ICommunication* Communication_CreateNewInstance() {
    return NewClearedElement<ICommunication, CCommunication>();
}

}  // namespace VextorJSConfig
