#include "config/HTTPS.h"

namespace VextorJSConfig {

// In write order, which is also the read order.
constexpr auto CHTTPS::Members() {
    return std::make_tuple(KeyedMember(L"InspectHostnameOnly", &CHTTPS::inspectHostnameOnly_),
                           KeyedMember(L"SSLFilter", &CHTTPS::sslFilter_),
                           KeyedMember(L"UpstreamVerification", &CHTTPS::upstreamVerification_),
                           KeyedMember(L"WhiteList", &CHTTPS::whiteList_),
                           KeyedMember(L"WhiteListWithPorts", &CHTTPS::whiteListWithPorts_));
}

template class ElementBase<CHTTPS, IHTTPS>;

int CHTTPS::SetInspectHostnameOnly(const DWORD* value) {
    return SetRequired<&CHTTPS::inspectHostnameOnly_>(value);
}

int CHTTPS::SetSSLFilter(const DWORD* value) { return SetRequired<&CHTTPS::sslFilter_>(value); }

int CHTTPS::SetUpstreamVerification(const DWORD* value) {
    return SetRequired<&CHTTPS::upstreamVerification_>(value);
}

IHTTPS* HTTPS_CreateNewInstance() { return NewClearedElement<IHTTPS, CHTTPS>(); }

}  // namespace VextorJSConfig
