#include "config/StringLists.h"

#include "config/ElementMembers.h"
#include "config/ElementMessages.h"
#include "config/MemberIO.h"

#include <utility>

namespace VextorJSConfig {

// List ----------------------------------------------------------------------

template <class Interface, class EntryInterface, class Entry, class Names>
StringList<Interface, EntryInterface, Entry, Names>::~StringList() {
    StringList::Clear();
}

template <class Interface, class EntryInterface, class Entry, class Names>
int StringList<Interface, EntryInterface, Entry, Names>::WriteToJSONMgr(IJSONManager* mgr,
                                                                        JSONNode* parent,
                                                                        int /*flag*/) {
    if (mgr == nullptr) return ReportFailure(Message::WriteNoManager());
    if (parent == nullptr) return ReportFailure(Message::ElementNodeMissing(Names::kList));
    if (entries_.empty()) return ZELT_SUCCESS;

    JSONNode* array = mgr->AddElement(parent, Names::kList, ZELT_ADD_ARRAY);
    if (array == nullptr) return ReportFailure(Message::ElementNodeMissing(Names::kList));
    // Each entry receives its 1-based position as the flag.
    int position = 1;
    for (const std::unique_ptr<Entry>& entry : entries_) {
        if (entry->WriteToJSONMgr(mgr, array, position++) != ZELT_SUCCESS)
            return ReportFailure(
                Message::Child(Message::ChildFailure::WriteListEntry, Names::kEntry));
    }
    return ZELT_SUCCESS;
}

template <class Interface, class EntryInterface, class Entry, class Names>
int StringList<Interface, EntryInterface, Entry, Names>::ReadFromJSONMgr(IJSONManager* mgr,
                                                                         JSONNode* node) {
    if (mgr == nullptr) return ReportFailure(Message::ReadNoManager());
    Clear();
    // Below 1 covers an empty array and a null node (-101). A node that is not
    // an array counts 2 and then fails at its first item.
    const int count = mgr->GetArrayCount(node, Names::kEntry);
    if (count > 0) entries_.reserve(static_cast<std::size_t>(count));
    for (int index = 0; index < count; ++index) {
        JSONNode* item = mgr->GetArrayElement(node, Names::kEntry, index);
        auto entry = std::make_unique<Entry>();
        if (item == nullptr || entry->ReadFromJSONMgr(mgr, item) != ZELT_SUCCESS) {
            entry.reset();
            Clear();
            return ReportFailure(
                Message::Child(Message::ChildFailure::ReadListEntry, Names::kEntry));
        }
        entries_.push_back(std::move(entry));
    }
    return ZELT_SUCCESS;
}

template <class Interface, class EntryInterface, class Entry, class Names>
void StringList<Interface, EntryInterface, Entry, Names>::Clear() {
    this->ElementType = ELEMENT_TYPE_ORDINARY;
    this->RemoveAllItems();
}

template <class Interface, class EntryInterface, class Entry, class Names>
Interface& StringList<Interface, EntryInterface, Entry, Names>::CopyFrom(const Interface& other) {
    if (&other == this) return *this;
    this->Clear();
    const auto& source = static_cast<const StringList&>(other);
    for (const std::unique_ptr<Entry>& entry : source.entries_)
        entries_.push_back(CopyOfEntry(*entry));
    return *this;
}

template <class Interface, class EntryInterface, class Entry, class Names>
DWORD StringList<Interface, EntryInterface, Entry, Names>::GetItemCount() const {
    return static_cast<DWORD>(entries_.size());
}

template <class Interface, class EntryInterface, class Entry, class Names>
bool StringList<Interface, EntryInterface, Entry, Names>::IsValidIndex(DWORD index) const {
    const DWORD count = GetItemCount();
    return count != 0 && index <= count - 1;
}

template <class Interface, class EntryInterface, class Entry, class Names>
EntryInterface* StringList<Interface, EntryInterface, Entry, Names>::GetItem(DWORD index) {
    return IsValidIndex(index) ? entries_[index].get() : nullptr;
}

template <class Interface, class EntryInterface, class Entry, class Names>
void StringList<Interface, EntryInterface, Entry, Names>::AddItem(const EntryInterface* item) {
    entries_.push_back(CopyOfEntry(*item));
}

template <class Interface, class EntryInterface, class Entry, class Names>
void StringList<Interface, EntryInterface, Entry, Names>::InsertItem(DWORD index,
                                                                     const EntryInterface* item) {
    std::unique_ptr<Entry> entry = CopyOfEntry(*item);
    // Unsigned on purpose: on an empty list the bound wraps to 4294967295, so
    // index 0 inserts the first entry. Any other index on an empty list is a
    // caller error; it appends rather than inserting past the end.
    const DWORD lastIndex = GetItemCount() - 1;
    if (index <= lastIndex && index <= entries_.size())
        entries_.insert(entries_.begin() + index, std::move(entry));
    else
        entries_.push_back(std::move(entry));
}

template <class Interface, class EntryInterface, class Entry, class Names>
void StringList<Interface, EntryInterface, Entry, Names>::RemoveItem(DWORD index) {
    if (!IsValidIndex(index)) return;
    // Take the slot out first, then destroy the entry.
    std::unique_ptr<Entry> removed = std::move(entries_[index]);
    entries_.erase(entries_.begin() + index);
}

template <class Interface, class EntryInterface, class Entry, class Names>
void StringList<Interface, EntryInterface, Entry, Names>::RemoveAllItems() {
    // Front to back; the sequence keeps its storage for reuse.
    for (std::unique_ptr<Entry>& entry : entries_) entry.reset();
    entries_.clear();
}

template <class Interface, class EntryInterface, class Entry, class Names>
std::unique_ptr<Entry> StringList<Interface, EntryInterface, Entry, Names>::CopyOfEntry(
    const EntryInterface& source) {
    auto entry = std::make_unique<Entry>();
    entry->Clear();
    entry->CopyFrom(source);
    return entry;
}

// The three lists -------------------------------------------------------------

template class StringList<IClientRequestHeaders, IClientRequestHeadersArray,
                          CClientRequestHeadersArray, ClientRequestHeadersNames>;
template class StringList<IIPList, IIPListArray, CIPListArray, IPListNames>;
template class StringList<IVPNDescList, IVPNDescListArray, CVPNDescListArray, VPNDescListNames>;

// The entries' factories stay here, beside the lists that make entries: made
// in this file only, an entry's machinery (ElementBase.h) is made once.
ZELT_ELEMENT_FACTORY(ClientRequestHeadersArray)
ZELT_ELEMENT_FACTORY(IPListArray)
ZELT_ELEMENT_FACTORY(VPNDescListArray)

}  // namespace VextorJSConfig
