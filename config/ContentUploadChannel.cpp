#include "config/ContentUploadChannel.h"

namespace VextorJSConfig {

IContentUploadChannel* ContentUploadChannel_CreateNewInstance() {
    return NewClearedElement<IContentUploadChannel, CContentUploadChannel>();
}

}  // namespace VextorJSConfig
