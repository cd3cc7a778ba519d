#include "config/ContentUploadChannel.h"

namespace VextorJSConfig {

template class ElementBase<CContentUploadChannel, IContentUploadChannel>;

CContentUploadChannel::~CContentUploadChannel() { CContentUploadChannel::Clear(); }

}  // namespace VextorJSConfig
