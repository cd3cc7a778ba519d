#include "config/HTTPS.h"

namespace VextorJSConfig {

namespace {
constexpr const wchar_t* kInspectHostnameOnly = L"InspectHostnameOnly";
constexpr const wchar_t* kSSLFilter = L"SSLFilter";
constexpr const wchar_t* kUpstreamVerification = L"UpstreamVerification";
constexpr const wchar_t* kWhiteList = L"WhiteList";
constexpr const wchar_t* kWhiteListWithPorts = L"WhiteListWithPorts";
}  // namespace

// In write order, which is also the read order.
auto CHTTPS::Members() {
    return std::make_tuple(KeyedMember(kInspectHostnameOnly, &CHTTPS::inspectHostnameOnly_),
                           KeyedMember(kSSLFilter, &CHTTPS::sslFilter_),
                           KeyedMember(kUpstreamVerification, &CHTTPS::upstreamVerification_),
                           KeyedMember(kWhiteList, &CHTTPS::whiteList_),
                           KeyedMember(kWhiteListWithPorts, &CHTTPS::whiteListWithPorts_));
}

template class ElementBase<CHTTPS, IHTTPS>;

int CHTTPS::SetInspectHostnameOnly(const DWORD* value) {
    return SetRequiredDWORD(inspectHostnameOnly_, value, kName, kInspectHostnameOnly);
}

int CHTTPS::SetSSLFilter(const DWORD* value) {
    return SetRequiredDWORD(sslFilter_, value, kName, kSSLFilter);
}

int CHTTPS::SetUpstreamVerification(const DWORD* value) {
    return SetRequiredDWORD(upstreamVerification_, value, kName, kUpstreamVerification);
}

int CHTTPS::GetWhiteList(std::wstring* out) const { return GetOptionalString(whiteList_, out); }

void CHTTPS::SetWhiteList(const std::wstring* value) { SetOptionalString(whiteList_, value); }

int CHTTPS::GetWhiteListWithPorts(std::wstring* out) const {
    return GetOptionalString(whiteListWithPorts_, out);
}

void CHTTPS::SetWhiteListWithPorts(const std::wstring* value) {
    SetOptionalString(whiteListWithPorts_, value);
}

IHTTPS* HTTPS_CreateNewInstance() { return NewClearedElement<IHTTPS, CHTTPS>(); }

}  // namespace VextorJSConfig
