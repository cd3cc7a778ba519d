/// \file
/// zelt.h: the whole public interface of the zelt configuration library.
#ifndef ZELT_ZELT_H
#define ZELT_ZELT_H

#include <zelt/AdvancedRule.h>
#include <zelt/ClientSetting.h>
#include <zelt/Communication.h>
#include <zelt/ContentUploadChannel.h>
#include <zelt/EnforceList.h>
#include <zelt/Export.h>
#include <zelt/HTTPS.h>
#include <zelt/JSONManager.h>
#include <zelt/StringLists.h>
#include <zelt/Types.h>
#include <zelt/Version.h>
#include <zelt/VextorJSConfig.h>
#include <zelt/WhiteList.h>

#endif  // ZELT_ZELT_H
