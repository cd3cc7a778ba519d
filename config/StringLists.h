// StringLists.h: the one implementation behind the three string lists and
// their entries.
//
// StringListEntry holds one string and is an element like the others
// (ElementBase.h); StringList owns an ordered sequence of entries and reads
// and writes them as a JSON array of strings. Both are instantiated once per
// list; a Names struct supplies the list's JSON key and the entry's name,
// which is all that tells the three apart (the key and the names in the
// failure messages). The list's member functions are instantiated in
// StringLists.cpp.
#ifndef ZELT_CONFIG_STRINGLISTS_H
#define ZELT_CONFIG_STRINGLISTS_H

#include "config/ElementBase.h"

#include <zelt/Element.h>
#include <zelt/JSONManager.h>
#include <zelt/StringLists.h>
#include <zelt/Types.h>

#include <memory>
#include <string>
#include <vector>

namespace VextorJSConfig {

struct ClientRequestHeadersNames {
    static constexpr const wchar_t* kList = L"ClientRequestHeaders";
    static constexpr const wchar_t* kEntry = L"ClientRequestHeadersArray";
};

struct IPListNames {
    static constexpr const wchar_t* kList = L"IPList";
    static constexpr const wchar_t* kEntry = L"IPListArray";
};

struct VPNDescListNames {
    static constexpr const wchar_t* kList = L"VPNDescList";
    static constexpr const wchar_t* kEntry = L"VPNDescListArray";
};

// One entry: a required string member "StringValue". Inside a list it is a
// bare string item of the array; written under an object it becomes the
// member "StringValue", and both forms read back: the manager takes a string
// item as the value itself and looks up "StringValue" in an object item.
template <class Interface, class Names>
class StringListEntry : public ElementBase<StringListEntry<Interface, Names>, Interface> {
public:
    const std::wstring* GetStringValue() const override { return &stringValue_; }
    int SetStringValue(const std::wstring* value) override {
        return this->template SetRequired<&StringListEntry::stringValue_>(value);
    }

    // The entry's name in the failure messages (ElementBase.h).
    static constexpr const wchar_t* kName = Names::kEntry;
    static constexpr DWORD kElementType = ELEMENT_TYPE_LIST_ENTRY;
    static constexpr auto Members() {
        return std::make_tuple(KeyedMember(L"StringValue", &StringListEntry::stringValue_));
    }
    // An entry has no node of its own: it writes into its parent, the list's
    // array, where the string is appended as a bare item (under an object it
    // becomes the member "StringValue"). The parent must be given.
    static JSONNode* CreateNode(IJSONManager* mgr, JSONNode* parent) {
        if (!HasWriteManager(mgr)) return nullptr;
        return ElementNodeOrMessage(parent, kName);
    }
    ~StringListEntry() override { StringListEntry::Clear(); }

private:
    std::wstring stringValue_;
};

// The list: entries in order, owned, never null, never shared with another
// list. An empty list writes nothing at all, not even an empty array.
template <class Interface, class EntryInterface, class Entry, class Names>
class StringList : public Interface {
public:
    // The list's key in its parent element.
    static constexpr const wchar_t* kName = Names::kList;

    ~StringList() override;

    int WriteToJSONMgr(IJSONManager* mgr, JSONNode* parent, int flag) override;
    int ReadFromJSONMgr(IJSONManager* mgr, JSONNode* node) override;
    void Clear() override;
    Interface& CopyFrom(const Interface& other) override;

    DWORD GetItemCount() const override;
    EntryInterface* GetItem(DWORD index) override;
    void AddItem(const EntryInterface* item) override;
    void InsertItem(DWORD index, const EntryInterface* item) override;
    void RemoveItem(DWORD index) override;
    void RemoveAllItems() override;

private:
    // A new, cleared entry holding a copy of source's string.
    static std::unique_ptr<Entry> CopyOfEntry(const EntryInterface& source);
    bool IsValidIndex(DWORD index) const;

    std::vector<std::unique_ptr<Entry>> entries_;
};

class CClientRequestHeadersArray final
    : public StringListEntry<IClientRequestHeadersArray, ClientRequestHeadersNames> {};
class CClientRequestHeaders final
    : public StringList<IClientRequestHeaders, IClientRequestHeadersArray,
                        CClientRequestHeadersArray, ClientRequestHeadersNames> {};

class CIPListArray final : public StringListEntry<IIPListArray, IPListNames> {};
class CIPList final : public StringList<IIPList, IIPListArray, CIPListArray, IPListNames> {};

class CVPNDescListArray final : public StringListEntry<IVPNDescListArray, VPNDescListNames> {};
class CVPNDescList final
    : public StringList<IVPNDescList, IVPNDescListArray, CVPNDescListArray, VPNDescListNames> {};

extern template class StringList<IClientRequestHeaders, IClientRequestHeadersArray,
                                 CClientRequestHeadersArray, ClientRequestHeadersNames>;
extern template class StringList<IIPList, IIPListArray, CIPListArray, IPListNames>;
extern template class StringList<IVPNDescList, IVPNDescListArray, CVPNDescListArray,
                                 VPNDescListNames>;

}  // namespace VextorJSConfig

#endif  // ZELT_CONFIG_STRINGLISTS_H
