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

IContentUploadChannel* ContentUploadChannel_CreateNewInstance() {
    return NewClearedElement<IContentUploadChannel, CContentUploadChannel>();
}

}  // namespace VextorJSConfig
