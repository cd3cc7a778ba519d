#include "config/ContentUploadChannel.h"

namespace VextorJSConfig {

// In write order, which is also the read order.
constexpr auto CContentUploadChannel::Members() {
    return std::make_tuple(
        KeyedMember(CClientRequestHeaders::kName, &CContentUploadChannel::clientRequestHeaders_),
        KeyedMember(L"MaxFileSizeForScan", &CContentUploadChannel::maxFileSizeForScan_),
        KeyedMember(L"FileTypesToBlock", &CContentUploadChannel::fileTypesToBlock_),
        KeyedMember(L"FileTypesToScan", &CContentUploadChannel::fileTypesToScan_));
}

template class ElementBase<CContentUploadChannel, IContentUploadChannel>;

int CContentUploadChannel::SetMaxFileSizeForScan(const DWORD* value) {
    return SetRequired<&CContentUploadChannel::maxFileSizeForScan_>(value);
}

int CContentUploadChannel::GetFileTypesToBlock(std::wstring* out) const {
    return GetOptionalString(fileTypesToBlock_, out);
}

void CContentUploadChannel::SetFileTypesToBlock(const std::wstring* value) {
    SetOptionalString(fileTypesToBlock_, value);
}

int CContentUploadChannel::GetFileTypesToScan(std::wstring* out) const {
    return GetOptionalString(fileTypesToScan_, out);
}

void CContentUploadChannel::SetFileTypesToScan(const std::wstring* value) {
    SetOptionalString(fileTypesToScan_, value);
}

IContentUploadChannel* ContentUploadChannel_CreateNewInstance() {
    return NewClearedElement<IContentUploadChannel, CContentUploadChannel>();
}

}  // namespace VextorJSConfig
