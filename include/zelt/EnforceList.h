/// \file
/// EnforceList.h: the enforcement list, the optional object "EnforceList"
/// inside "AdvancedRule".
///
/// An address list ("IPList") and two strings, "ProcessNames" and
/// "DomainLists", written in that order. Every member is optional. The
/// strings are passed through unchanged; their syntax is the agent's business.
#ifndef ZELT_ENFORCELIST_H
#define ZELT_ENFORCELIST_H

#include <zelt/Element.h>
#include <zelt/Export.h>
#include <zelt/StringLists.h>
#include <zelt/Types.h>

#include <string>

namespace VextorJSConfig {

/// The enforcement list "EnforceList" inside "AdvancedRule"; every member is
/// optional.
class IEnforceList : public ElementInterface<IEnforceList> {
public:
    /// Hands out the embedded list itself (1), or 2 while it is absent.
    virtual int GetIPList(IIPList** out) = 0;
    ///@{
    /// Copies *value into the embedded list and marks it present; null only
    /// marks it absent and keeps its entries.
    virtual void SetIPList(const IIPList* value) = 0;
    ///@{
    /// Optional texts: 2 and *out untouched while absent; null removes.
    virtual int GetProcessNames(std::wstring* out) const = 0;
    virtual void SetProcessNames(const std::wstring* value) = 0;
    virtual int GetDomainLists(std::wstring* out) const = 0;
    virtual void SetDomainLists(const std::wstring* value) = 0;
    ///@}
    ///@}
};

/// A new, cleared element; the caller deletes it through the interface.
ZELT_API IEnforceList* EnforceList_CreateNewInstance();

}  // namespace VextorJSConfig

#endif  // ZELT_ENFORCELIST_H
