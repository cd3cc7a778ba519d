/// \file
/// AdvancedRule.h: the agent's advanced enforcement rule, the required object
/// "AdvancedRule" of the document.
///
/// An enforcement list ("EnforceList"), an exemption list ("WhiteList") and
/// three switches ("EnforceProxyServer", "BypassPrivateIP", "BypassLocalIP").
/// Every member is optional. The values are stored and transferred, never
/// interpreted.
#ifndef ZELT_ADVANCEDRULE_H
#define ZELT_ADVANCEDRULE_H

#include <zelt/Element.h>
#include <zelt/EnforceList.h>
#include <zelt/Export.h>
#include <zelt/Types.h>
#include <zelt/WhiteList.h>

namespace VextorJSConfig {

/// The advanced enforcement rule "AdvancedRule".
/// Slots 0 to 5 come from ElementInterface; the order below continues them
/// (slot 6 onward) and is part of the binary contract.
class IAdvancedRule : public ElementInterface<IAdvancedRule> {
public:
    ///@{
    /// The list getters hand out the embedded child itself (1), or 2 while it
    /// is absent; changes through that pointer change this element. The
    /// setters copy *value and mark the child present; null only marks it
    /// absent and keeps its content, which a later write leaves out.
    virtual int GetEnforceList(IEnforceList** out) = 0;
    virtual void SetEnforceList(const IEnforceList* value) = 0;
    virtual int GetWhiteList(IWhiteList** out) = 0;
    virtual void SetWhiteList(const IWhiteList* value) = 0;
    ///@}

    ///@{
    /// Optional switches: 2 and *out untouched while absent; null removes.
    virtual int GetEnforceProxyServer(DWORD* out) const = 0;
    virtual void SetEnforceProxyServer(const DWORD* value) = 0;
    virtual int GetBypassPrivateIP(DWORD* out) const = 0;
    virtual void SetBypassPrivateIP(const DWORD* value) = 0;
    virtual int GetBypassLocalIP(DWORD* out) const = 0;
    virtual void SetBypassLocalIP(const DWORD* value) = 0;
    ///@}
};

/// A new, cleared element; the caller deletes it through the interface.
ZELT_API IAdvancedRule* AdvancedRule_CreateNewInstance();

}  // namespace VextorJSConfig

#endif  // ZELT_ADVANCEDRULE_H
