/// \file
/// HTTPS.h: the element that holds how the agent treats encrypted web traffic.
///
/// "HTTPS" is a required object of "ClientSetting". It carries three switches
/// ("InspectHostnameOnly", "SSLFilter", "UpstreamVerification"), which are
/// always present, and two optional exemption texts ("WhiteList",
/// "WhiteListWithPorts"). The values are stored and transferred, never
/// interpreted. Its "WhiteList" is a plain string, unrelated to the WhiteList
/// element under "AdvancedRule".
#ifndef ZELT_HTTPS_H
#define ZELT_HTTPS_H

#include <zelt/Element.h>
#include <zelt/Export.h>
#include <zelt/Types.h>

#include <string>

namespace VextorJSConfig {

/// How the agent treats encrypted web traffic: "HTTPS" in "ClientSetting".
/// Slots 0 to 5 come from ElementInterface; the order below continues them
/// (slot 6 onward) and is part of the binary contract.
class IHTTPS : public ElementInterface<IHTTPS> {
public:
    ///@{
    /// Required switches: the getter gives the value; the setter refuses null
    /// with a message and -101 and otherwise returns 1.
    virtual DWORD GetInspectHostnameOnly() const = 0;
    virtual int SetInspectHostnameOnly(const DWORD* value) = 0;
    virtual DWORD GetSSLFilter() const = 0;
    virtual int SetSSLFilter(const DWORD* value) = 0;
    virtual DWORD GetUpstreamVerification() const = 0;
    virtual int SetUpstreamVerification(const DWORD* value) = 0;
    ///@}

    ///@{
    /// Optional texts: the getter returns 2 and leaves *out alone when absent,
    /// otherwise copies the text and returns 1; the setter with null removes
    /// the member.
    virtual int GetWhiteList(std::wstring* out) const = 0;
    virtual void SetWhiteList(const std::wstring* value) = 0;
    virtual int GetWhiteListWithPorts(std::wstring* out) const = 0;
    virtual void SetWhiteListWithPorts(const std::wstring* value) = 0;
    ///@}
};

/// A new, cleared element; the caller deletes it through the interface.
ZELT_API IHTTPS* HTTPS_CreateNewInstance();

}  // namespace VextorJSConfig

#endif  // ZELT_HTTPS_H
