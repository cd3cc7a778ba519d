// The exported factories: each gives a new element, already put through
// Clear, that the caller destroys through the virtual destructor.
#include "config/AdvancedRule.h"
#include "config/ClientSetting.h"
#include "config/Communication.h"
#include "config/ContentUploadChannel.h"
#include "config/EnforceList.h"
#include "config/HTTPS.h"
#include "config/StringLists.h"
#include "config/VextorJSConfig.h"
#include "config/WhiteList.h"

namespace VextorJSConfig {

IVextorJSConfig* VextorJSConfig_CreateNewInstance() {
    return NewClearedElement<IVextorJSConfig, CVextorJSConfig>();
}
IClientSetting* ClientSetting_CreateNewInstance() {
    return NewClearedElement<IClientSetting, CClientSetting>();
}
ICommunication* Communication_CreateNewInstance() {
    return NewClearedElement<ICommunication, CCommunication>();
}
IHTTPS* HTTPS_CreateNewInstance() { return NewClearedElement<IHTTPS, CHTTPS>(); }
IAdvancedRule* AdvancedRule_CreateNewInstance() {
    return NewClearedElement<IAdvancedRule, CAdvancedRule>();
}
IEnforceList* EnforceList_CreateNewInstance() {
    return NewClearedElement<IEnforceList, CEnforceList>();
}
IWhiteList* WhiteList_CreateNewInstance() { return NewClearedElement<IWhiteList, CWhiteList>(); }
IContentUploadChannel* ContentUploadChannel_CreateNewInstance() {
    return NewClearedElement<IContentUploadChannel, CContentUploadChannel>();
}
IClientRequestHeaders* ClientRequestHeaders_CreateNewInstance() {
    return NewClearedElement<IClientRequestHeaders, CClientRequestHeaders>();
}
IIPList* IPList_CreateNewInstance() { return NewClearedElement<IIPList, CIPList>(); }
IVPNDescList* VPNDescList_CreateNewInstance() {
    return NewClearedElement<IVPNDescList, CVPNDescList>();
}

}  // namespace VextorJSConfig
