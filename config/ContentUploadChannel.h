// ContentUploadChannel.h: CContentUploadChannel, the implementation of
// IContentUploadChannel.
#ifndef ZELT_CONFIG_CONTENTUPLOADCHANNEL_H
#define ZELT_CONFIG_CONTENTUPLOADCHANNEL_H

#include "config/ElementMembers.h"
#include "config/StringLists.h"

#include <zelt/ContentUploadChannel.h>

namespace VextorJSConfig {

class CContentUploadChannel final : public IContentUploadChannel {
public:
    CContentUploadChannel() = default;
    ~CContentUploadChannel() override;
    CContentUploadChannel(const CContentUploadChannel&) = delete;
    CContentUploadChannel& operator=(const CContentUploadChannel&) = delete;

    int WriteToJSONMgr(IJSONManager* mgr, JSONNode* parent, int flag) override;
    int ReadFromJSONMgr(IJSONManager* mgr, JSONNode* node) override;
    void Clear() override;
    IContentUploadChannel& CopyFrom(const IContentUploadChannel& other) override;

    int GetClientRequestHeaders(IClientRequestHeaders** out) override;
    void SetClientRequestHeaders(const IClientRequestHeaders* value) override;
    DWORD GetMaxFileSizeForScan() const override { return maxFileSizeForScan_; }
    int SetMaxFileSizeForScan(const DWORD* value) override;
    int GetFileTypesToBlock(std::wstring* out) const override;
    void SetFileTypesToBlock(const std::wstring* value) override;
    int GetFileTypesToScan(std::wstring* out) const override;
    void SetFileTypesToScan(const std::wstring* value) override;

private:
    template <class Steps>
    bool VisitMembers(Steps& steps);

    // In write order. The list may keep entries while its flag is 0.
    CClientRequestHeaders clientRequestHeaders_;
    DWORD clientRequestHeadersPresent_ = 0;
    DWORD maxFileSizeForScan_ = 0;
    OptionalString fileTypesToBlock_;
    OptionalString fileTypesToScan_;
};

}  // namespace VextorJSConfig

#endif  // ZELT_CONFIG_CONTENTUPLOADCHANNEL_H
