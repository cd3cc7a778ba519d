/// \file
/// Element.h: what every configuration element interface shares.
///
/// Each element of the configuration (VextorJSConfig, ClientSetting, ...) is an
/// interface I\<Name\> derived from ElementInterface\<I\<Name\>\>, made by its
/// exported factory \<Name\>_CreateNewInstance() and destroyed with delete
/// through the interface. The base fixes the ElementType field and the first
/// six virtual slots; each element appends its accessors from slot 6 on.
#ifndef ZELT_ELEMENT_H
#define ZELT_ELEMENT_H

#include <zelt/JSONManager.h>
#include <zelt/Types.h>

/// The configuration element model: one interface and one factory for each
/// element of the document.
namespace VextorJSConfig {

/// \name ElementType values
///@{
/// ElementType of an ordinary element.
inline constexpr DWORD ELEMENT_TYPE_ORDINARY = 0;
/// ElementType of a list entry.
inline constexpr DWORD ELEMENT_TYPE_LIST_ENTRY = 2;
///@}

/// The base of every element interface: the ElementType field and the first
/// six virtual slots. Interface is the derived element interface itself.
template <class Interface>
class ElementInterface {
public:
    /// 0 for ordinary elements, 2 for list entries; set by Clear and the
    /// destructor, never copied.
    DWORD ElementType = ELEMENT_TYPE_ORDINARY;

    /// Destroys the element and the children it embeds.
    virtual ~ElementInterface() {}

    /// Creates the element's own node under parent and writes its members.
    virtual int WriteToJSONMgr(IJSONManager* mgr, JSONNode* parent, int flag) = 0;
    /// Fills the element from its own node (the parent has looked it up).
    virtual int ReadFromJSONMgr(IJSONManager* mgr, JSONNode* node) = 0;
    /// Resets every member to its default: empty, zero, absent.
    virtual void Clear() = 0;
    /// Makes this element a copy of other; the interface's own version copies
    /// nothing.
    virtual Interface& CopyFrom(const Interface& /*other*/) {
        return static_cast<Interface&>(*this);
    }
    /// The ElementType field.
    virtual DWORD GetElementType() const { return ElementType; }
};

}  // namespace VextorJSConfig

#endif  // ZELT_ELEMENT_H
