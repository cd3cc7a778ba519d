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

ZELT_ELEMENT_FACTORY(VextorJSConfig)
ZELT_ELEMENT_FACTORY(ClientSetting)
ZELT_ELEMENT_FACTORY(Communication)
ZELT_ELEMENT_FACTORY(HTTPS)
ZELT_ELEMENT_FACTORY(AdvancedRule)
ZELT_ELEMENT_FACTORY(EnforceList)
ZELT_ELEMENT_FACTORY(WhiteList)
ZELT_ELEMENT_FACTORY(ContentUploadChannel)
ZELT_ELEMENT_FACTORY(ClientRequestHeaders)
ZELT_ELEMENT_FACTORY(IPList)
ZELT_ELEMENT_FACTORY(VPNDescList)

}  // namespace VextorJSConfig
