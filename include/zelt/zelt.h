// zelt.h: the whole public interface of the zelt configuration library.
#ifndef ZELT_ZELT_H
#define ZELT_ZELT_H

#include <zelt/Export.h>
#include <zelt/Types.h>
#include <zelt/JSONManager.h>
#include <zelt/Communication.h>
#include <zelt/StringLists.h>
#include <zelt/EnforceList.h>
#include <zelt/WhiteList.h>
#include <zelt/HTTPS.h>
#include <zelt/ClientSetting.h>
#include <zelt/AdvancedRule.h>
#include <zelt/ContentUploadChannel.h>
#include <zelt/VextorJSConfig.h>

#endif  // ZELT_ZELT_H
