// ContentUploadChannel.h: CContentUploadChannel, the implementation of
// IContentUploadChannel.
#ifndef ZELT_CONFIG_CONTENTUPLOADCHANNEL_H
#define ZELT_CONFIG_CONTENTUPLOADCHANNEL_H

#include "config/ElementBase.h"
#include "config/StringLists.h"

#include <zelt/ContentUploadChannel.h>

#include <string>

namespace VextorJSConfig {

class CContentUploadChannel final
    : public ElementBase<CContentUploadChannel, IContentUploadChannel> {
public:
    int GetClientRequestHeaders(IClientRequestHeaders** out) override {
        return GetOptional(clientRequestHeaders_, out);
    }
    void SetClientRequestHeaders(const IClientRequestHeaders* value) override {
        SetOptional(clientRequestHeaders_, value);
    }
    DWORD GetMaxFileSizeForScan() const override { return maxFileSizeForScan_; }
    int SetMaxFileSizeForScan(const DWORD* value) override {
        return SetRequired<&CContentUploadChannel::maxFileSizeForScan_>(value);
    }
    int GetFileTypesToBlock(std::wstring* out) const override {
        return GetOptional(fileTypesToBlock_, out);
    }
    void SetFileTypesToBlock(const std::wstring* value) override {
        SetOptional(fileTypesToBlock_, value);
    }
    int GetFileTypesToScan(std::wstring* out) const override {
        return GetOptional(fileTypesToScan_, out);
    }
    void SetFileTypesToScan(const std::wstring* value) override {
        SetOptional(fileTypesToScan_, value);
    }

    // The element's own key (ElementBase.h).
    static constexpr const wchar_t* kName = L"ContentUploadChannel";
    // The members in write order, which is also the read order.
    static constexpr auto Members() {
        return std::make_tuple(
            KeyedMember(CClientRequestHeaders::kName,
                        &CContentUploadChannel::clientRequestHeaders_),
            KeyedMember(L"MaxFileSizeForScan", &CContentUploadChannel::maxFileSizeForScan_),
            KeyedMember(L"FileTypesToBlock", &CContentUploadChannel::fileTypesToBlock_),
            KeyedMember(L"FileTypesToScan", &CContentUploadChannel::fileTypesToScan_));
    }
    ~CContentUploadChannel() override;

private:
    OptionalChild<CClientRequestHeaders> clientRequestHeaders_;
    DWORD maxFileSizeForScan_ = 0;
    OptionalString fileTypesToBlock_;
    OptionalString fileTypesToScan_;
};

extern template class ElementBase<CContentUploadChannel, IContentUploadChannel>;

}  // namespace VextorJSConfig

#endif  // ZELT_CONFIG_CONTENTUPLOADCHANNEL_H
