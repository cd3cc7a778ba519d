#include "config/ContentUploadChannel.h"

namespace VextorJSConfig {

template class ElementBase<CContentUploadChannel, IContentUploadChannel>;

CContentUploadChannel::~CContentUploadChannel() { CContentUploadChannel::Clear(); }

IContentUploadChannel* ContentUploadChannel_CreateNewInstance() {
    return NewClearedElement<IContentUploadChannel, CContentUploadChannel>();
}

}  // namespace VextorJSConfig
