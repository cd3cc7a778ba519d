// ManagerOperationsFuzzer.cpp: sequences of manager calls on a document.
// The input holds a document (imported when not empty) up to its zero byte,
// then operations, each an opcode byte followed by its arguments: nodes
// picked from those the calls have handed out, names from the
// configuration's keys or made up (null, long, invalid code points), type
// codes, indices and buffer lengths. Every result must be one the call
// documents, and string reads must deliver whole strings of the announced
// length. Handles that a call may have freed (member replacement, removal,
// a new document) are dropped, as a caller must.
#include <zelt/zelt.h>

#include <json-c/json.h>

#include <cwchar>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "FuzzInput.h"

namespace {

json_type Kind(JSONNode* node) {
    return json_object_get_type(reinterpret_cast<json_object*>(node));
}

bool OneOf(int result, std::initializer_list<int> allowed) {
    for (int code : allowed)
        if (result == code) return true;
    return false;
}

class Session {
public:
    explicit Session(FuzzInput& input)
        : input_(input), manager_(zeltCreateJSONManager(nullptr, 0)) {}

    void ImportDocument(const std::string& text) {
        if (text.empty()) return;
        const int result =
            manager_->ImportFromJSONString(text.c_str(), static_cast<int>(text.size()));
        FUZZ_CHECK(OneOf(result, {ZELT_SUCCESS, ZELT_BAD_ARGUMENT}));
        FUZZ_CHECK((manager_->GetRootElement() != nullptr) == (result == ZELT_SUCCESS));
    }

    void Step() {
        switch (input_.Byte() % 15) {
            case 0:
                manager_->ClearDocument();
                DropHandles();
                FUZZ_CHECK(Root() == nullptr);
                break;
            case 1:
                DropHandles();
                FUZZ_CHECK(manager_->CreateNewDocument() == ZELT_SUCCESS);
                break;
            case 2:
                ImportAgain();
                break;
            case 3:
                Save();
                break;
            case 4:
                Keep(Root());
                break;
            case 5:
                Add();
                break;
            case 6:
                Get();
                break;
            case 7:
                GetItem();
                break;
            case 8:
                SetNumber();
                break;
            case 9:
                SetText();
                break;
            case 10:
                GetNumber();
                break;
            case 11:
                GetText(false);
                break;
            case 12:
                GetText(true);
                break;
            case 13:
                Count();
                break;
            default:
                Remove();
                break;
        }
    }

private:
    JSONNode* Root() { return manager_->GetRootElement(); }

    void DropHandles() { nodes_.clear(); }
    void Keep(JSONNode* node) {
        if (node != nullptr && nodes_.size() < 64) nodes_.push_back(node);
    }

    // A node handed out earlier, or null (the root where a call substitutes it).
    JSONNode* PickNode() {
        const std::uint8_t pick = input_.Byte();
        if (nodes_.empty() || pick % 8 == 0) return nullptr;
        return nodes_[pick % nodes_.size()];
    }
    // A null parent stands for the root, which needs a document.
    bool Usable(JSONNode* node) { return node != nullptr || Root() != nullptr; }

    // Null, a key of the configuration, a long name around the limits, or
    // any wide text.
    const wchar_t* PickName() {
        const std::uint8_t form = input_.Byte();
        switch (form % 4) {
            case 0:
                return nullptr;
            case 1:
                name_ = kConfigurationKeys[input_.Byte() % std::size(kConfigurationKeys)];
                break;
            case 2: {
                static constexpr std::size_t kLengths[] = {258, 259, 260, 1022, 1023, 1024, 2000};
                name_.assign(kLengths[input_.Byte() % std::size(kLengths)], L'n');
                break;
            }
            default:
                name_ = input_.WideText(32);
                break;
        }
        return name_.c_str();
    }

    void ImportAgain() {
        const std::string text = input_.TextUpToZero();
        const std::uint8_t form = input_.Byte() % 4;
        DropHandles();
        const JSONNode* before = Root();
        int result;
        if (form == 0) {
            result = manager_->ImportFromJSONString(nullptr, static_cast<int>(text.size()));
        } else {
            // The exact length, one less or one more.
            const int length = static_cast<int>(text.size()) + (form == 2 ? -1 : form == 3 ? 1 : 0);
            result = manager_->ImportFromJSONString(text.c_str(), length);
            if (form != 1 || text.empty()) FUZZ_CHECK(Root() == before);
        }
        FUZZ_CHECK(OneOf(result, {ZELT_SUCCESS, ZELT_BAD_ARGUMENT}));
        FUZZ_CHECK(result != ZELT_SUCCESS || Root() != nullptr);
    }

    // Into the null device: what is saved is the round-trip target's business.
    void Save() {
        const int result = manager_->SaveToJSONFile(L"/dev/null");
        FUZZ_CHECK(result == (Root() != nullptr ? ZELT_SUCCESS : ZELT_NOTHING_TO_SAVE));
    }

    void Add() {
        JSONNode* parent = PickNode();
        const wchar_t* name = PickName();
        const int type = static_cast<int>(input_.Byte() % 8) - 1;
        if (!Usable(parent)) return;
        JSONNode* target = parent != nullptr ? parent : Root();
        const json_type kind = Kind(target);
        // An object under a parent that can hold none is attached nowhere and
        // kept as intended; its leak is the unit tests' business, and naming
        // it in leak reports needs the slow unwinder.
        if (type == ZELT_ADD_OBJECT && kind != json_type_object && kind != json_type_array) return;
        JSONNode* added = manager_->AddElement(parent, name, type);
        if (name == nullptr || type < ZELT_ADD_OBJECT || type > ZELT_ADD_PARENT_FOR_DWORD) {
            FUZZ_CHECK(added == nullptr);
            return;
        }
        if (type == ZELT_ADD_PARENT_FOR_STRING || type == ZELT_ADD_PARENT_FOR_DWORD) {
            FUZZ_CHECK(added == nullptr || added == target);
            return;
        }
        // A new member replaces one of the same name, and frees it.
        if (kind == json_type_object) DropHandles();
        if (added == nullptr) return;
        if (type == ZELT_ADD_OBJECT) {
            FUZZ_CHECK(Kind(added) == json_type_object);
        } else {
            FUZZ_CHECK(kind == json_type_object && Kind(added) == json_type_array);
        }
        Keep(added);
    }

    void Get() {
        JSONNode* parent = PickNode();
        const wchar_t* name = PickName();
        JSONNode* found = manager_->GetElement(parent, name);
        if (name == nullptr || !Usable(parent)) FUZZ_CHECK(found == nullptr);
        Keep(found);
    }

    void GetItem() {
        JSONNode* array = PickNode();
        const int index = static_cast<int>(input_.Word());
        JSONNode* item = manager_->GetArrayElement(array, nullptr, index);
        if (array == nullptr || index < 0 || Kind(array) != json_type_array) {
            FUZZ_CHECK(item == nullptr);
            return;
        }
        FUZZ_CHECK(static_cast<std::size_t>(index) <
                       json_object_array_length(reinterpret_cast<json_object*>(array)) ||
                   item == nullptr);
        Keep(item);
    }

    void SetNumber() {
        JSONNode* node = PickNode();
        const wchar_t* name = PickName();
        const DWORD value = input_.Word();
        if (node != nullptr && Kind(node) == json_type_object) DropHandles();
        const int result = manager_->SetDWORDAttribute(node, name, value);
        FUZZ_CHECK(OneOf(result, {ZELT_SUCCESS, ZELT_FAILED, ZELT_BAD_ARGUMENT}));
        if (node == nullptr) FUZZ_CHECK(result == ZELT_BAD_ARGUMENT);
        // Names that GetDWORDAttribute can look up (below 1024 bytes) read back.
        if (result == ZELT_SUCCESS && Kind(node) == json_type_object && name != nullptr &&
            std::wcslen(name) < 256) {
            DWORD back = 0;
            FUZZ_CHECK(manager_->GetDWORDAttribute(node, name, &back) == ZELT_SUCCESS);
            FUZZ_CHECK(back == value);
        }
    }

    void SetText() {
        JSONNode* node = PickNode();
        const wchar_t* name = PickName();
        std::wstring value = input_.WideText(40);
        const bool nullValue = input_.Byte() % 8 == 0;
        if (node != nullptr && Kind(node) == json_type_object) DropHandles();
        const int result =
            manager_->SetStringAttribute(node, name, nullValue ? nullptr : value.c_str());
        FUZZ_CHECK(OneOf(result, {ZELT_SUCCESS, ZELT_FAILED, ZELT_BAD_ARGUMENT}));
        if (node == nullptr || nullValue) FUZZ_CHECK(result == ZELT_BAD_ARGUMENT);
    }

    void GetNumber() {
        JSONNode* node = PickNode();
        const wchar_t* name = PickName();
        const bool nullValue = input_.Byte() % 8 == 0;
        if (!Usable(node)) return;
        DWORD value = 0;
        const int result = manager_->GetDWORDAttribute(node, name, nullValue ? nullptr : &value);
        FUZZ_CHECK(OneOf(result, {ZELT_SUCCESS, ZELT_NOT_PRESENT, ZELT_BAD_ARGUMENT}));
        if (name == nullptr || nullValue) FUZZ_CHECK(result == ZELT_BAD_ARGUMENT);
    }

    // A string read with a buffer of the input's choosing; when it is too
    // small, a second read with the announced length must deliver it whole.
    void GetText(bool fromArray) {
        JSONNode* node = PickNode();
        const wchar_t* name = PickName();
        const int index = static_cast<int>(input_.Byte()) - 8;
        const int capacity = input_.Byte();
        if (!Usable(node)) return;
        auto read = [&](std::vector<wchar_t>& buffer, int* length) {
            return fromArray
                       ? manager_->GetArrayStringAttribute(node, name, index, buffer.data(), length)
                       : manager_->GetStringAttribute(node, name, buffer.data(), length);
        };
        std::vector<wchar_t> buffer(static_cast<std::size_t>(capacity) + 1, L'#');
        int length = capacity;
        int result = read(buffer, &length);
        FUZZ_CHECK(OneOf(
            result, {ZELT_SUCCESS, ZELT_NOT_PRESENT, ZELT_BAD_ARGUMENT, ZELT_BUFFER_TOO_SMALL}));
        if (name == nullptr) FUZZ_CHECK(result == ZELT_BAD_ARGUMENT);
        if (result == ZELT_BUFFER_TOO_SMALL) {
            FUZZ_CHECK(length > capacity && length >= 2);
            buffer.assign(static_cast<std::size_t>(length), L'#');
            const int needed = length;
            result = read(buffer, &length);
            FUZZ_CHECK(result == ZELT_SUCCESS && length == needed);
        }
        if (result == ZELT_SUCCESS) {
            // The announced length counts the text, its terminator and one more.
            FUZZ_CHECK(std::wcslen(buffer.data()) + 2 == static_cast<std::size_t>(length));
        }
    }

    void Count() {
        JSONNode* array = PickNode();
        const int count = manager_->GetArrayCount(array, PickName());
        if (array == nullptr) {
            FUZZ_CHECK(count == ZELT_FAILED);
        } else if (Kind(array) != json_type_array) {
            FUZZ_CHECK(count == ZELT_NOT_PRESENT);
        } else {
            FUZZ_CHECK(static_cast<std::size_t>(count) ==
                       json_object_array_length(reinterpret_cast<json_object*>(array)));
        }
    }

    void Remove() {
        JSONNode* parent = PickNode();
        const wchar_t* name = PickName();
        const int result = manager_->RemoveElement(parent, name);
        FUZZ_CHECK(OneOf(result, {ZELT_SUCCESS, ZELT_NOT_PRESENT, ZELT_BAD_ARGUMENT}));
        if (parent == nullptr || name == nullptr) FUZZ_CHECK(result == ZELT_BAD_ARGUMENT);
        if (result == ZELT_SUCCESS) {
            DropHandles();
            FUZZ_CHECK(manager_->GetElement(parent, name) == nullptr);
        }
    }

    FuzzInput& input_;
    ManagerPtr manager_;
    std::vector<JSONNode*> nodes_;
    std::wstring name_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    Session session(input);
    session.ImportDocument(input.TextUpToZero());
    for (int step = 0; step < 128 && !input.Empty(); ++step) session.Step();
    return 0;
}
