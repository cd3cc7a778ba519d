/// \file
/// WhiteList.h: the exemption list, the optional object "WhiteList" inside
/// "AdvancedRule".
///
/// An address list ("IPList"), a list of VPN descriptions ("VPNDescList") and
/// two strings, "DomainLists" and "ProcessNames", written in that order (the
/// two strings come in the reverse order of EnforceList's). Every member is
/// optional.
#ifndef ZELT_WHITELIST_H
#define ZELT_WHITELIST_H

#include <zelt/Element.h>
#include <zelt/Export.h>
#include <zelt/StringLists.h>
#include <zelt/Types.h>

#include <string>

namespace VextorJSConfig {

/// The exemption list "WhiteList" inside "AdvancedRule"; every member is
/// optional.
class IWhiteList : public ElementInterface<IWhiteList> {
public:
    ///@{
    /// The list getters hand out the embedded list itself (1), or 2 while it
    /// is absent; the setters copy *value and mark it present, and null only
    /// marks it absent and keeps its entries.
    virtual int GetIPList(IIPList** out) = 0;
    virtual void SetIPList(const IIPList* value) = 0;
    virtual int GetVPNDescList(IVPNDescList** out) = 0;
    virtual void SetVPNDescList(const IVPNDescList* value) = 0;
    ///@}
    ///@{
    /// Optional texts: 2 and *out untouched while absent; null removes.
    virtual int GetDomainLists(std::wstring* out) const = 0;
    virtual void SetDomainLists(const std::wstring* value) = 0;
    virtual int GetProcessNames(std::wstring* out) const = 0;
    virtual void SetProcessNames(const std::wstring* value) = 0;
    ///@}
};

/// A new, cleared element; the caller deletes it through the interface.
ZELT_API IWhiteList* WhiteList_CreateNewInstance();

}  // namespace VextorJSConfig

#endif  // ZELT_WHITELIST_H
