#include "config/ContentUploadChannel.h"

namespace VextorJSConfig {

namespace {
constexpr const wchar_t* kMaxFileSizeForScan = L"MaxFileSizeForScan";
constexpr const wchar_t* kFileTypesToBlock = L"FileTypesToBlock";
constexpr const wchar_t* kFileTypesToScan = L"FileTypesToScan";
}  // namespace

// In write order, which is also the read order.
auto CContentUploadChannel::Members() {
    return std::make_tuple(
        KeyedMember(CClientRequestHeaders::kName, &CContentUploadChannel::clientRequestHeaders_),
        KeyedMember(kMaxFileSizeForScan, &CContentUploadChannel::maxFileSizeForScan_),
        KeyedMember(kFileTypesToBlock, &CContentUploadChannel::fileTypesToBlock_),
        KeyedMember(kFileTypesToScan, &CContentUploadChannel::fileTypesToScan_));
}

template class ElementBase<CContentUploadChannel, IContentUploadChannel>;

int CContentUploadChannel::SetMaxFileSizeForScan(const DWORD* value) {
    return SetRequiredDWORD(maxFileSizeForScan_, value, kName, kMaxFileSizeForScan);
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
