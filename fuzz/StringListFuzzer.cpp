// StringListFuzzer.cpp: list operations checked against a plain vector of
// strings. The input picks one of the three lists, optionally a document
// whose root array is read into it first, then a sequence of operations:
// add, insert at any index, remove, copy, clear, read an item, change an
// item in place, and write to a document and read back. The document comes
// first, up to its zero byte, so that JSON texts serve as seeds.
#include <zelt/zelt.h>

#include <memory>
#include <string>
#include <vector>

#include "FuzzInput.h"

namespace {

using namespace VextorJSConfig;
using Model = std::vector<std::wstring>;

constexpr std::size_t kMaxValueUnits = 24;

// What a text becomes after a trip through UTF-8: invalid code points turn
// into U+FFFD.
std::wstring ThroughUtf8(const std::wstring& text) {
    std::wstring result;
    for (wchar_t unit : text) {
        const auto c = static_cast<std::uint32_t>(unit);
        result += (c > 0x10FFFF || (c >= 0xD800 && c <= 0xDFFF)) ? L'\uFFFD' : unit;
    }
    return result;
}

template <class List>
Model Values(List& list) {
    Model values;
    for (DWORD i = 0; i < list.GetItemCount(); ++i) {
        auto* item = list.GetItem(i);
        FUZZ_CHECK(item != nullptr);
        FUZZ_CHECK(item->GetElementType() == 2);
        values.push_back(*item->GetStringValue());
    }
    FUZZ_CHECK(list.GetItem(list.GetItemCount()) == nullptr);
    return values;
}

template <class List, class Entry>
struct ListKind {
    List* (*makeList)();
    Entry* (*makeEntry)();
    const wchar_t* key;
};

template <class List, class Entry>
void Exercise(const ListKind<List, Entry>& kind, const std::string& document, FuzzInput& input) {
    std::unique_ptr<List> list(kind.makeList());
    Model model;
    if (!document.empty()) {
        ManagerPtr manager(zeltCreateJSONManager(nullptr, 0));
        if (manager->ImportFromJSONString(document.c_str(), static_cast<int>(document.size())) ==
            ZELT_SUCCESS) {
            const int read = list->ReadFromJSONMgr(manager.get(), manager->GetRootElement());
            FUZZ_CHECK(read == ZELT_SUCCESS || read == ZELT_FAILED);
            if (read == ZELT_SUCCESS) {
                model = Values(*list);
                const int count = manager->GetArrayCount(manager->GetRootElement(), kind.key);
                FUZZ_CHECK(model.size() == (count < 1 ? 0u : static_cast<std::size_t>(count)));
            }
        }
    }
    FUZZ_CHECK(Values(*list) == model);

    auto makeEntry = [&](const std::wstring& value) {
        std::unique_ptr<Entry> entry(kind.makeEntry());
        FUZZ_CHECK(entry->SetStringValue(&value) == ZELT_SUCCESS);
        return entry;
    };
    auto index = [&]() -> DWORD {
        const std::uint8_t form = input.Byte();
        if (form < 0xF0) return form % (model.size() + 2);
        return input.Word();
    };

    for (int step = 0; step < 64 && !input.Empty(); ++step) {
        switch (input.Byte() % 9) {
            case 0: {
                const std::wstring value = input.WideText(kMaxValueUnits);
                list->AddItem(makeEntry(value).get());
                model.push_back(value);
                break;
            }
            case 1: {
                const DWORD at = index();
                const std::wstring value = input.WideText(kMaxValueUnits);
                list->InsertItem(at, makeEntry(value).get());
                if (!model.empty() && at <= model.size() - 1)
                    model.insert(model.begin() + at, value);
                else
                    model.push_back(value);
                break;
            }
            case 2: {
                const DWORD at = index();
                list->RemoveItem(at);
                if (at < model.size()) model.erase(model.begin() + at);
                break;
            }
            case 3: {
                std::unique_ptr<List> copy(kind.makeList());
                copy->CopyFrom(*list);
                FUZZ_CHECK(Values(*copy) == model);
                list->CopyFrom(*list);
                list.swap(copy);
                break;
            }
            case 4:
                if (input.Byte() % 2 == 0)
                    list->RemoveAllItems();
                else
                    list->Clear();
                model.clear();
                break;
            case 5: {
                const DWORD at = index();
                auto* item = list->GetItem(at);
                FUZZ_CHECK((item != nullptr) == (at < model.size()));
                if (item != nullptr) FUZZ_CHECK(*item->GetStringValue() == model[at]);
                break;
            }
            case 6: {
                const DWORD at = index();
                const std::wstring value = input.WideText(kMaxValueUnits);
                auto* item = list->GetItem(at);
                if (item == nullptr) break;
                FUZZ_CHECK(item->SetStringValue(&value) == ZELT_SUCCESS);
                model[at] = value;
                break;
            }
            case 7: {
                ManagerPtr manager(zeltCreateJSONManager(nullptr, 0));
                FUZZ_CHECK(manager->CreateNewDocument() == ZELT_SUCCESS);
                FUZZ_CHECK(list->WriteToJSONMgr(manager.get(), manager->GetRootElement(), 1) ==
                           ZELT_SUCCESS);
                JSONNode* array = manager->GetElement(nullptr, kind.key);
                FUZZ_CHECK((array == nullptr) == model.empty());
                std::unique_ptr<List> back(kind.makeList());
                FUZZ_CHECK(back->ReadFromJSONMgr(manager.get(), array) == ZELT_SUCCESS);
                Model expected;
                for (const std::wstring& value : model) expected.push_back(ThroughUtf8(value));
                FUZZ_CHECK(Values(*back) == expected);
                break;
            }
            default: {
                // A null entry value is refused and changes nothing.
                auto* item = list->GetItem(index());
                if (item != nullptr) FUZZ_CHECK(item->SetStringValue(nullptr) == ZELT_FAILED);
                break;
            }
        }
        FUZZ_CHECK(list->GetItemCount() == model.size());
        FUZZ_CHECK(Values(*list) == model);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const std::string document = input.TextUpToZero();
    switch (input.Byte() % 3) {
        case 0:
            Exercise(ListKind<IIPList, IIPListArray>{&IPList_CreateNewInstance,
                                                     &IPListArray_CreateNewInstance, L"IPList"},
                     document, input);
            break;
        case 1:
            Exercise(ListKind<IVPNDescList, IVPNDescListArray>{&VPNDescList_CreateNewInstance,
                                                               &VPNDescListArray_CreateNewInstance,
                                                               L"VPNDescList"},
                     document, input);
            break;
        default:
            Exercise(
                ListKind<IClientRequestHeaders, IClientRequestHeadersArray>{
                    &ClientRequestHeaders_CreateNewInstance,
                    &ClientRequestHeadersArray_CreateNewInstance, L"ClientRequestHeaders"},
                document, input);
            break;
    }
    return 0;
}
