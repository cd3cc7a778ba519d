/// \file
/// VextorJSConfig.h: the root element, a whole configuration document.
///
/// Its members are the document's top-level members: the required children
/// "ClientSetting", "AdvancedRule" and "ContentUploadChannel", the required
/// texts "ProfileName", "SchemaVersion" and "AdminPassword", and the optional
/// switch "EnableTrayiconMenu".
///
/// Reading: import the document into a manager, then
///     root->ReadFromJSONMgr(mgr, mgr->GetRootElement());
/// the root does not look the top-level object up itself. A failure anywhere
/// in the tree leaves the whole root cleared.
/// Writing: root->WriteToJSONMgr(mgr, nullptr, 1) replaces the manager's
/// document by a new one and fills it; SaveToJSONFile then stores it.
#ifndef ZELT_VEXTORJSCONFIG_H
#define ZELT_VEXTORJSCONFIG_H

#include <zelt/AdvancedRule.h>
#include <zelt/ClientSetting.h>
#include <zelt/ContentUploadChannel.h>
#include <zelt/Element.h>
#include <zelt/Export.h>
#include <zelt/Types.h>

#include <string>

namespace VextorJSConfig {

/// The root element: the whole configuration document.
/// Slots 0 to 5 come from ElementInterface; the order below continues them
/// (slot 6 onward) and is part of the binary contract.
class IVextorJSConfig : public ElementInterface<IVextorJSConfig> {
public:
    ///@{
    /// The child getters hand out the embedded child itself, to be changed in
    /// place; the setters copy *value into it and refuse null with a message
    /// and -101.
    virtual IClientSetting* GetClientSetting() = 0;
    virtual int SetClientSetting(const IClientSetting* value) = 0;
    virtual IAdvancedRule* GetAdvancedRule() = 0;
    virtual int SetAdvancedRule(const IAdvancedRule* value) = 0;
    virtual IContentUploadChannel* GetContentUploadChannel() = 0;
    virtual int SetContentUploadChannel(const IContentUploadChannel* value) = 0;
    ///@}

    ///@{
    /// Required texts: the getter gives the member itself; the setter refuses
    /// null with a message and -101.
    virtual const std::wstring* GetProfileName() const = 0;
    virtual int SetProfileName(const std::wstring* value) = 0;
    virtual const std::wstring* GetSchemaVersion() const = 0;
    virtual int SetSchemaVersion(const std::wstring* value) = 0;
    virtual const std::wstring* GetAdminPassword() const = 0;
    virtual int SetAdminPassword(const std::wstring* value) = 0;
    ///@}

    ///@{
    /// Optional switch: 2 and *out untouched while absent; null removes it.
    virtual int GetEnableTrayiconMenu(DWORD* out) const = 0;
    virtual void SetEnableTrayiconMenu(const DWORD* value) = 0;
    ///@}

    ///@{
    /// Slots 20 and 21 are reserved for a further optional switch, so that
    /// the slots above never shift. They hold nothing: the getter answers 2
    /// and leaves *out alone, the setter does nothing.
    virtual int ReservedSlot20(DWORD* out) const = 0;
    virtual void ReservedSlot21(const DWORD* value) = 0;
    ///@}
};

/// A new, cleared root; the caller deletes it through the interface.
ZELT_API IVextorJSConfig* VextorJSConfig_CreateNewInstance();

}  // namespace VextorJSConfig

#endif  // ZELT_VEXTORJSCONFIG_H
