#include "config/ClientSetting.h"

namespace VextorJSConfig {

// In write order, which is also the read order: the children first.
constexpr auto CClientSetting::Members() {
    return std::make_tuple(KeyedMember(CCommunication::kName, &CClientSetting::communication_),
                           KeyedMember(CHTTPS::kName, &CClientSetting::https_),
                           KeyedMember(L"ContentUpload", &CClientSetting::contentUpload_),
                           KeyedMember(L"FailOpen", &CClientSetting::failOpen_),
                           KeyedMember(L"LogUpload", &CClientSetting::logUpload_),
                           KeyedMember(L"URLLocalCache", &CClientSetting::urlLocalCache_),
                           KeyedMember(L"SafeMode", &CClientSetting::safeMode_),
                           KeyedMember(L"StatsPeriod", &CClientSetting::statsPeriod_));
}

template class ElementBase<CClientSetting, IClientSetting>;

int CClientSetting::SetCommunication(const ICommunication* value) {
    return SetRequired<&CClientSetting::communication_>(value);
}

int CClientSetting::SetHTTPS(const IHTTPS* value) {
    return SetRequired<&CClientSetting::https_>(value);
}

int CClientSetting::SetContentUpload(const DWORD* value) {
    return SetRequired<&CClientSetting::contentUpload_>(value);
}

int CClientSetting::SetLogUpload(const DWORD* value) {
    return SetRequired<&CClientSetting::logUpload_>(value);
}

int CClientSetting::SetURLLocalCache(const DWORD* value) {
    return SetRequired<&CClientSetting::urlLocalCache_>(value);
}

IClientSetting* ClientSetting_CreateNewInstance() {
    return NewClearedElement<IClientSetting, CClientSetting>();
}

}  // namespace VextorJSConfig
