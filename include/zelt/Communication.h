/// \file
/// Communication.h: the agent's server addresses and its polling and upload
/// periods, the object "Communication" inside "ClientSetting".
///
/// Host names, upload and upgrade addresses, three intervals and the switch
/// for personally identifiable information. The values are stored and written
/// unchanged; nothing here interprets them. Create one with
/// Communication_CreateNewInstance() and destroy it with delete.
#ifndef ZELT_COMMUNICATION_H
#define ZELT_COMMUNICATION_H

#include <zelt/Element.h>
#include <zelt/Export.h>
#include <zelt/Types.h>

#include <string>

namespace VextorJSConfig {

/// Server addresses and periods: "Communication" in "ClientSetting".
/// Optional members answer 2 from their getter while absent; a null pointer
/// given to their setter makes them absent. Required members refuse null.
class ICommunication : public ElementInterface<ICommunication> {
public:
    ///@{
    /// Optional "AutoUpgradeQueryInterval": how often the agent asks for an
    /// upgrade.
    virtual int GetAutoUpgradeQueryInterval(DWORD* out) const = 0;
    virtual void SetAutoUpgradeQueryInterval(const DWORD* value) = 0;
    ///@}
    ///@{
    /// Required "DispServerHostname": the host name of the dispatch server. The
    /// getter gives the member itself.
    virtual const std::wstring* GetDispServerHostname() const = 0;
    virtual int SetDispServerHostname(const std::wstring* value) = 0;
    ///@}
    ///@{
    /// Optional "LogServerHostname": the host name of the log server.
    virtual int GetLogServerHostname(std::wstring* out) const = 0;
    virtual void SetLogServerHostname(const std::wstring* value) = 0;
    ///@}
    ///@{
    /// Optional "EventLogUploadURL": where event logs are uploaded.
    virtual int GetEventLogUploadURL(std::wstring* out) const = 0;
    virtual void SetEventLogUploadURL(const std::wstring* value) = 0;
    ///@}
    ///@{
    /// Optional "AutoupgradeURI": where upgrades are fetched.
    virtual int GetAutoupgradeURI(std::wstring* out) const = 0;
    virtual void SetAutoupgradeURI(const std::wstring* value) = 0;
    ///@}
    ///@{
    /// Required "LogUploadInterval": how often logs are uploaded.
    virtual DWORD GetLogUploadInterval() const = 0;
    virtual int SetLogUploadInterval(const DWORD* value) = 0;
    ///@}
    ///@{
    /// Required "ManagementQueryInterval": how often the management server is
    /// asked.
    virtual DWORD GetManagementQueryInterval() const = 0;
    virtual int SetManagementQueryInterval(const DWORD* value) = 0;
    ///@}
    ///@{
    /// Optional "EnablePII": the switch for personally identifiable information.
    virtual int GetEnablePII(DWORD* out) const = 0;
    virtual void SetEnablePII(const DWORD* value) = 0;
    ///@}
};

/// A new, cleared element; the caller deletes it through the interface.
ZELT_API ICommunication* Communication_CreateNewInstance();

}  // namespace VextorJSConfig

#endif  // ZELT_COMMUNICATION_H
