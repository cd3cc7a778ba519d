#include "config/ClientSetting.h"

namespace VextorJSConfig {

namespace {
constexpr const wchar_t* kContentUpload = L"ContentUpload";
constexpr const wchar_t* kFailOpen = L"FailOpen";
constexpr const wchar_t* kLogUpload = L"LogUpload";
constexpr const wchar_t* kURLLocalCache = L"URLLocalCache";
constexpr const wchar_t* kSafeMode = L"SafeMode";
constexpr const wchar_t* kStatsPeriod = L"StatsPeriod";
}  // namespace

// In write order, which is also the read order: the children first.
auto CClientSetting::Members() {
    return std::make_tuple(KeyedMember(CCommunication::kName, &CClientSetting::communication_),
                           KeyedMember(CHTTPS::kName, &CClientSetting::https_),
                           KeyedMember(kContentUpload, &CClientSetting::contentUpload_),
                           KeyedMember(kFailOpen, &CClientSetting::failOpen_),
                           KeyedMember(kLogUpload, &CClientSetting::logUpload_),
                           KeyedMember(kURLLocalCache, &CClientSetting::urlLocalCache_),
                           KeyedMember(kSafeMode, &CClientSetting::safeMode_),
                           KeyedMember(kStatsPeriod, &CClientSetting::statsPeriod_));
}

template class ElementBase<CClientSetting, IClientSetting>;

int CClientSetting::SetCommunication(const ICommunication* value) {
    return SetRequiredChild(communication_, value, CCommunication::kName);
}

int CClientSetting::SetHTTPS(const IHTTPS* value) {
    return SetRequiredChild(https_, value, CHTTPS::kName);
}

int CClientSetting::SetContentUpload(const DWORD* value) {
    return SetRequiredDWORD(contentUpload_, value, kName, kContentUpload);
}

int CClientSetting::GetFailOpen(DWORD* out) const { return GetOptionalDWORD(failOpen_, out); }

void CClientSetting::SetFailOpen(const DWORD* value) { SetOptionalDWORD(failOpen_, value); }

int CClientSetting::SetLogUpload(const DWORD* value) {
    return SetRequiredDWORD(logUpload_, value, kName, kLogUpload);
}

int CClientSetting::SetURLLocalCache(const DWORD* value) {
    return SetRequiredDWORD(urlLocalCache_, value, kName, kURLLocalCache);
}

int CClientSetting::GetSafeMode(DWORD* out) const { return GetOptionalDWORD(safeMode_, out); }

void CClientSetting::SetSafeMode(const DWORD* value) { SetOptionalDWORD(safeMode_, value); }

int CClientSetting::GetStatsPeriod(DWORD* out) const { return GetOptionalDWORD(statsPeriod_, out); }

void CClientSetting::SetStatsPeriod(const DWORD* value) { SetOptionalDWORD(statsPeriod_, value); }

IClientSetting* ClientSetting_CreateNewInstance() {
    return NewClearedElement<IClientSetting, CClientSetting>();
}

}  // namespace VextorJSConfig
