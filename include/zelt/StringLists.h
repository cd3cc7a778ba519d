// StringLists.h: the three ordered lists of strings in the configuration and
// their entries.
//
// ClientRequestHeaders (extra request headers of the content upload channel),
// IPList (addresses of the enforcement and exemption lists) and VPNDescList
// (VPN descriptions of the exemption list) are one design under three names.
// In the document a list is a JSON array of strings; each string is one entry
// element (ClientRequestHeadersArray, IPListArray, VPNDescListArray). A list
// owns its entries: AddItem and InsertItem store a copy of the caller's entry,
// and GetItem hands out the list's own entry, which dies with it.
#ifndef ZELT_STRINGLISTS_H
#define ZELT_STRINGLISTS_H

#include <zelt/Element.h>
#include <zelt/Export.h>
#include <zelt/Types.h>

#include <string>

namespace VextorJSConfig {

// One string of a list. Its GetElementType is 2.
template <class Self>
class StringListEntryInterface : public ElementInterface<Self> {
public:
    // The entry's own string, not a copy.
    virtual const std::wstring* GetStringValue() const = 0;
    // Null is refused with a message and -101; otherwise 1.
    virtual int SetStringValue(const std::wstring* value) = 0;
};

// An ordered list of entries. Indices are unsigned 32-bit; an index at or
// past the end gives null from GetItem and is ignored by RemoveItem.
template <class Self, class Entry>
class StringListInterface : public ElementInterface<Self> {
public:
    virtual DWORD GetItemCount() const = 0;
    virtual Entry* GetItem(DWORD index) = 0;
    // item must be an entry of this list's own kind made by this library.
    virtual void AddItem(const Entry* item) = 0;
    // Inserts before index when index <= GetItemCount() - 1 (unsigned, so 0
    // on an empty list inserts); appends otherwise.
    virtual void InsertItem(DWORD index, const Entry* item) = 0;
    virtual void RemoveItem(DWORD index) = 0;
    virtual void RemoveAllItems() = 0;
};

class IClientRequestHeadersArray : public StringListEntryInterface<IClientRequestHeadersArray> {};
class IClientRequestHeaders
    : public StringListInterface<IClientRequestHeaders, IClientRequestHeadersArray> {};

class IIPListArray : public StringListEntryInterface<IIPListArray> {};
class IIPList : public StringListInterface<IIPList, IIPListArray> {};

class IVPNDescListArray : public StringListEntryInterface<IVPNDescListArray> {};
class IVPNDescList : public StringListInterface<IVPNDescList, IVPNDescListArray> {};

ZELT_API IClientRequestHeaders* ClientRequestHeaders_CreateNewInstance();
ZELT_API IClientRequestHeadersArray* ClientRequestHeadersArray_CreateNewInstance();
ZELT_API IIPList* IPList_CreateNewInstance();
ZELT_API IIPListArray* IPListArray_CreateNewInstance();
ZELT_API IVPNDescList* VPNDescList_CreateNewInstance();
ZELT_API IVPNDescListArray* VPNDescListArray_CreateNewInstance();

}  // namespace VextorJSConfig

#endif  // ZELT_STRINGLISTS_H
