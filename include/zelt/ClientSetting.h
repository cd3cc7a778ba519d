/// \file
/// ClientSetting.h: the agent's general client behaviour, the required object
/// "ClientSetting" of the document.
///
/// Two required children, "Communication" (server addresses and intervals)
/// and "HTTPS" (encrypted web traffic), and six switches and periods of its
/// own: "ContentUpload", "LogUpload" and "URLLocalCache" always present,
/// "FailOpen", "SafeMode" and "StatsPeriod" optional. The values are stored
/// and transferred, never interpreted.
#ifndef ZELT_CLIENTSETTING_H
#define ZELT_CLIENTSETTING_H

#include <zelt/Communication.h>
#include <zelt/Element.h>
#include <zelt/Export.h>
#include <zelt/HTTPS.h>
#include <zelt/Types.h>

namespace VextorJSConfig {

/// The general client behaviour "ClientSetting".
/// Slots 0 to 5 come from ElementInterface; the order below continues them
/// (slot 6 onward) and is part of the binary contract.
class IClientSetting : public ElementInterface<IClientSetting> {
public:
    ///@{
    /// The child getters hand out the embedded child itself, to be changed in
    /// place; the setters copy *value into it and refuse null with a message
    /// and -101.
    virtual ICommunication* GetCommunication() = 0;
    virtual int SetCommunication(const ICommunication* value) = 0;
    virtual IHTTPS* GetHTTPS() = 0;
    virtual int SetHTTPS(const IHTTPS* value) = 0;
    ///@}

    ///@{
    /// Required values refuse a null pointer with a message and -101; optional
    /// ones answer 2 (and leave *out alone) while absent, and null removes
    /// them.
    virtual DWORD GetContentUpload() const = 0;
    virtual int SetContentUpload(const DWORD* value) = 0;
    virtual int GetFailOpen(DWORD* out) const = 0;
    virtual void SetFailOpen(const DWORD* value) = 0;
    virtual DWORD GetLogUpload() const = 0;
    virtual int SetLogUpload(const DWORD* value) = 0;
    virtual DWORD GetURLLocalCache() const = 0;
    virtual int SetURLLocalCache(const DWORD* value) = 0;
    virtual int GetSafeMode(DWORD* out) const = 0;
    virtual void SetSafeMode(const DWORD* value) = 0;
    virtual int GetStatsPeriod(DWORD* out) const = 0;
    virtual void SetStatsPeriod(const DWORD* value) = 0;
    ///@}
};

/// A new, cleared element; the caller deletes it through the interface.
ZELT_API IClientSetting* ClientSetting_CreateNewInstance();

}  // namespace VextorJSConfig

#endif  // ZELT_CLIENTSETTING_H
