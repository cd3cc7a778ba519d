// ClientSetting.h: CClientSetting, the implementation of IClientSetting.
#ifndef ZELT_CONFIG_CLIENTSETTING_H
#define ZELT_CONFIG_CLIENTSETTING_H

#include "config/Communication.h"
#include "config/ElementBase.h"
#include "config/HTTPS.h"

#include <zelt/ClientSetting.h>

namespace VextorJSConfig {

class CClientSetting final : public ElementBase<CClientSetting, IClientSetting> {
public:
    ICommunication* GetCommunication() override { return &communication_; }
    int SetCommunication(const ICommunication* value) override {
        return SetRequired<&CClientSetting::communication_>(value);
    }
    IHTTPS* GetHTTPS() override { return &https_; }
    int SetHTTPS(const IHTTPS* value) override {
        return SetRequired<&CClientSetting::https_>(value);
    }
    DWORD GetContentUpload() const override { return contentUpload_; }
    int SetContentUpload(const DWORD* value) override {
        return SetRequired<&CClientSetting::contentUpload_>(value);
    }
    int GetFailOpen(DWORD* out) const override { return GetOptional(failOpen_, out); }
    void SetFailOpen(const DWORD* value) override { SetOptional(failOpen_, value); }
    DWORD GetLogUpload() const override { return logUpload_; }
    int SetLogUpload(const DWORD* value) override {
        return SetRequired<&CClientSetting::logUpload_>(value);
    }
    DWORD GetURLLocalCache() const override { return urlLocalCache_; }
    int SetURLLocalCache(const DWORD* value) override {
        return SetRequired<&CClientSetting::urlLocalCache_>(value);
    }
    int GetSafeMode(DWORD* out) const override { return GetOptional(safeMode_, out); }
    void SetSafeMode(const DWORD* value) override { SetOptional(safeMode_, value); }
    int GetStatsPeriod(DWORD* out) const override { return GetOptional(statsPeriod_, out); }
    void SetStatsPeriod(const DWORD* value) override { SetOptional(statsPeriod_, value); }

    // The element's own key (ElementBase.h).
    static constexpr const wchar_t* kName = L"ClientSetting";
    // The members in write order, which is also the read order: the children first.
    static constexpr auto Members() {
        return std::make_tuple(KeyedMember(CCommunication::kName, &CClientSetting::communication_),
                               KeyedMember(CHTTPS::kName, &CClientSetting::https_),
                               KeyedMember(L"ContentUpload", &CClientSetting::contentUpload_),
                               KeyedMember(L"FailOpen", &CClientSetting::failOpen_),
                               KeyedMember(L"LogUpload", &CClientSetting::logUpload_),
                               KeyedMember(L"URLLocalCache", &CClientSetting::urlLocalCache_),
                               KeyedMember(L"SafeMode", &CClientSetting::safeMode_),
                               KeyedMember(L"StatsPeriod", &CClientSetting::statsPeriod_));
    }
    ~CClientSetting() override;

private:
    CCommunication communication_;
    CHTTPS https_;
    DWORD contentUpload_ = 0;
    OptionalDWORD failOpen_;
    DWORD logUpload_ = 0;
    DWORD urlLocalCache_ = 0;
    OptionalDWORD safeMode_;
    OptionalDWORD statsPeriod_;
};

extern template class ElementBase<CClientSetting, IClientSetting>;

}  // namespace VextorJSConfig

#endif  // ZELT_CONFIG_CLIENTSETTING_H
