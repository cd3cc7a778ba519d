// HTTPS.h: CHTTPS, the implementation of IHTTPS.
#ifndef ZELT_CONFIG_HTTPS_H
#define ZELT_CONFIG_HTTPS_H

#include "config/ElementMembers.h"

#include <zelt/HTTPS.h>

namespace VextorJSConfig {

class CHTTPS final : public IHTTPS {
public:
    CHTTPS() = default;
    ~CHTTPS() override;
    CHTTPS(const CHTTPS&) = delete;
    CHTTPS& operator=(const CHTTPS&) = delete;

    int WriteToJSONMgr(IJSONManager* mgr, JSONNode* parent, int flag) override;
    int ReadFromJSONMgr(IJSONManager* mgr, JSONNode* node) override;
    void Clear() override;
    IHTTPS& CopyFrom(const IHTTPS& other) override;

    DWORD GetInspectHostnameOnly() const override { return inspectHostnameOnly_; }
    int SetInspectHostnameOnly(const DWORD* value) override;
    DWORD GetSSLFilter() const override { return sslFilter_; }
    int SetSSLFilter(const DWORD* value) override;
    DWORD GetUpstreamVerification() const override { return upstreamVerification_; }
    int SetUpstreamVerification(const DWORD* value) override;
    int GetWhiteList(std::wstring* out) const override;
    void SetWhiteList(const std::wstring* value) override;
    int GetWhiteListWithPorts(std::wstring* out) const override;
    void SetWhiteListWithPorts(const std::wstring* value) override;

private:
    template <class Steps>
    bool VisitMembers(Steps& steps);

    // In write order.
    DWORD inspectHostnameOnly_ = 0;
    DWORD sslFilter_ = 0;
    DWORD upstreamVerification_ = 0;
    OptionalString whiteList_;
    OptionalString whiteListWithPorts_;
};

}  // namespace VextorJSConfig

#endif  // ZELT_CONFIG_HTTPS_H
