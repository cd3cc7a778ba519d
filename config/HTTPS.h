// HTTPS.h: CHTTPS, the implementation of IHTTPS.
#ifndef ZELT_CONFIG_HTTPS_H
#define ZELT_CONFIG_HTTPS_H

#include "config/ElementBase.h"

#include <zelt/HTTPS.h>

#include <string>

namespace VextorJSConfig {

class CHTTPS final : public ElementBase<CHTTPS, IHTTPS> {
public:
    DWORD GetInspectHostnameOnly() const override { return inspectHostnameOnly_; }
    int SetInspectHostnameOnly(const DWORD* value) override {
        return SetRequired<&CHTTPS::inspectHostnameOnly_>(value);
    }
    DWORD GetSSLFilter() const override { return sslFilter_; }
    int SetSSLFilter(const DWORD* value) override {
        return SetRequired<&CHTTPS::sslFilter_>(value);
    }
    DWORD GetUpstreamVerification() const override { return upstreamVerification_; }
    int SetUpstreamVerification(const DWORD* value) override {
        return SetRequired<&CHTTPS::upstreamVerification_>(value);
    }
    int GetWhiteList(std::wstring* out) const override { return GetOptional(whiteList_, out); }
    void SetWhiteList(const std::wstring* value) override { SetOptional(whiteList_, value); }
    int GetWhiteListWithPorts(std::wstring* out) const override {
        return GetOptional(whiteListWithPorts_, out);
    }
    void SetWhiteListWithPorts(const std::wstring* value) override {
        SetOptional(whiteListWithPorts_, value);
    }

    // The element's own key (ElementBase.h).
    static constexpr const wchar_t* kName = L"HTTPS";
    // The members in write order, which is also the read order.
    static constexpr auto Members() {
        return std::make_tuple(KeyedMember(L"InspectHostnameOnly", &CHTTPS::inspectHostnameOnly_),
                               KeyedMember(L"SSLFilter", &CHTTPS::sslFilter_),
                               KeyedMember(L"UpstreamVerification", &CHTTPS::upstreamVerification_),
                               KeyedMember(L"WhiteList", &CHTTPS::whiteList_),
                               KeyedMember(L"WhiteListWithPorts", &CHTTPS::whiteListWithPorts_));
    }
    ~CHTTPS() override;

private:
    DWORD inspectHostnameOnly_ = 0;
    DWORD sslFilter_ = 0;
    DWORD upstreamVerification_ = 0;
    OptionalString whiteList_;
    OptionalString whiteListWithPorts_;
};

extern template class ElementBase<CHTTPS, IHTTPS>;

}  // namespace VextorJSConfig

#endif  // ZELT_CONFIG_HTTPS_H
