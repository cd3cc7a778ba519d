/// \file
/// StringLists.h: the three ordered lists of strings in the configuration and
/// their entries.
///
/// ClientRequestHeaders (extra request headers of the content upload channel),
/// IPList (addresses of the enforcement and exemption lists) and VPNDescList
/// (VPN descriptions of the exemption list) are one design under three names.
/// In the document a list is a JSON array of strings; each string is one entry
/// element (ClientRequestHeadersArray, IPListArray, VPNDescListArray). A list
/// owns its entries: AddItem and InsertItem store a copy of the caller's entry,
/// and GetItem hands out the list's own entry, which dies with it.
#ifndef ZELT_STRINGLISTS_H
#define ZELT_STRINGLISTS_H

#include <zelt/Element.h>
#include <zelt/Export.h>
#include <zelt/Types.h>

#include <string>

namespace VextorJSConfig {

/// One string of a list. Its GetElementType is 2.
template <class Self>
class StringListEntryInterface : public ElementInterface<Self> {
public:
    /// The entry's own string, not a copy.
    virtual const std::wstring* GetStringValue() const = 0;
    /// Null is refused with a message and -101; otherwise 1.
    virtual int SetStringValue(const std::wstring* value) = 0;
};

/// An ordered list of entries. Indices are unsigned 32-bit; an index at or
/// past the end gives null from GetItem and is ignored by RemoveItem.
template <class Self, class Entry>
class StringListInterface : public ElementInterface<Self> {
public:
    /// The number of entries.
    virtual DWORD GetItemCount() const = 0;
    /// The list's own entry at index, or null past the end.
    virtual Entry* GetItem(DWORD index) = 0;
    /// item must be an entry of this list's own kind made by this library.
    virtual void AddItem(const Entry* item) = 0;
    /// Inserts before index when index <= GetItemCount() - 1 (unsigned, so 0
    /// on an empty list inserts); appends otherwise.
    virtual void InsertItem(DWORD index, const Entry* item) = 0;
    /// Removes and destroys the entry at index; ignored past the end.
    virtual void RemoveItem(DWORD index) = 0;
    /// Removes and destroys every entry.
    virtual void RemoveAllItems() = 0;
};

/// One extra request header of the content upload channel.
class IClientRequestHeadersArray : public StringListEntryInterface<IClientRequestHeadersArray> {};
/// The list "ClientRequestHeaders" of the content upload channel.
class IClientRequestHeaders
    : public StringListInterface<IClientRequestHeaders, IClientRequestHeadersArray> {};

/// One address of an IPList.
class IIPListArray : public StringListEntryInterface<IIPListArray> {};
/// The address list "IPList" of the enforcement and exemption lists.
class IIPList : public StringListInterface<IIPList, IIPListArray> {};

/// One VPN description of a VPNDescList.
class IVPNDescListArray : public StringListEntryInterface<IVPNDescListArray> {};
/// The list "VPNDescList" of VPN descriptions of the exemption list.
class IVPNDescList : public StringListInterface<IVPNDescList, IVPNDescListArray> {};

///@{
/// Each makes a new, empty list or entry; the caller deletes it through the
/// interface.
ZELT_API IClientRequestHeaders* ClientRequestHeaders_CreateNewInstance();
ZELT_API IClientRequestHeadersArray* ClientRequestHeadersArray_CreateNewInstance();
ZELT_API IIPList* IPList_CreateNewInstance();
ZELT_API IIPListArray* IPListArray_CreateNewInstance();
ZELT_API IVPNDescList* VPNDescList_CreateNewInstance();
ZELT_API IVPNDescListArray* VPNDescListArray_CreateNewInstance();
///@}

}  // namespace VextorJSConfig

#endif  // ZELT_STRINGLISTS_H
