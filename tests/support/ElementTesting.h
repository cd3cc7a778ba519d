// ElementTesting.h: helpers for the suites of the configuration elements.
//
// Managers made from a text or with an empty document, the saved bytes of a
// manager's document, the virtual slot of an interface's member function, and
// ScriptedManager: a manager that forwards to a real one but can be told to
// refuse nodes, fail attribute writes or answer string reads from a script,
// and that records the calls the elements make.
#ifndef ZELT_TESTS_ELEMENTTESTING_H
#define ZELT_TESTS_ELEMENTTESTING_H

#include "support/TempFile.h"

#include <zelt/zelt.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <deque>
#include <memory>
#include <set>
#include <string>
#include <vector>

using ManagerPtr = std::unique_ptr<IJSONManager>;

// A manager holding the parsed text (which must import).
inline ManagerPtr ManagerFromText(std::string text) {
    ManagerPtr mgr(zeltCreateJSONManager(text.data(), static_cast<int>(text.size())));
    EXPECT_NE(mgr->GetRootElement(), nullptr) << "text did not import: " << text;
    return mgr;
}

// A manager with a new, empty document.
inline ManagerPtr ManagerWithEmptyDocument() {
    ManagerPtr mgr(zeltCreateJSONManager(nullptr, 0));
    EXPECT_EQ(mgr->CreateNewDocument(), ZELT_SUCCESS);
    return mgr;
}

// A manager without any document.
inline ManagerPtr ManagerWithoutDocument() { return ManagerPtr(zeltCreateJSONManager(nullptr, 0)); }

// The bytes that SaveToJSONFile writes for the manager's document.
inline std::string SavedText(IJSONManager& mgr) {
    TempDir dir;
    const std::string path = dir.File("saved.json");
    EXPECT_EQ(mgr.SaveToJSONFile(WidePath(path).c_str()), ZELT_SUCCESS);
    return FileExists(path) ? ReadFileBytes(path) : std::string();
}

// Writes the element under the root of a new document and gives the saved
// bytes.
template <class Element>
std::string WrittenText(Element& element) {
    ManagerPtr mgr = ManagerWithEmptyDocument();
    EXPECT_EQ(element.WriteToJSONMgr(mgr.get(), mgr->GetRootElement(), 1), ZELT_SUCCESS);
    return SavedText(*mgr);
}

// The Itanium ABI stores a pointer to a virtual member function as 1 plus the
// byte offset of its entry in the virtual table. The virtual destructor takes
// the first two entries, so slot k (k >= 1) is entry k + 1.
struct MemberFunctionPointer {
    std::uintptr_t ptr;
    std::ptrdiff_t adj;
};

template <class MemberFunction>
std::uintptr_t VirtualTableField(MemberFunction function) {
    static_assert(sizeof(MemberFunction) == sizeof(MemberFunctionPointer));
    MemberFunctionPointer representation{};
    std::memcpy(&representation, &function, sizeof representation);
    return representation.ptr;
}

constexpr std::uintptr_t SlotField(int slot) {
    return 1 + sizeof(void*) * static_cast<std::uintptr_t>(slot + 1);
}

#define EXPECT_SLOT(slot, function) \
    EXPECT_EQ(VirtualTableField(function), SlotField(slot)) << #function

// A text of count characters, varied so that a cut or shifted copy shows.
inline std::wstring LongText(std::size_t count) {
    std::wstring text(count, L'a');
    for (std::size_t i = 0; i < count; ++i) text[i] = static_cast<wchar_t>(L'a' + i % 26);
    return text;
}

inline std::string Narrow(const std::wstring& text) {
    return std::string(text.begin(), text.end());
}

class ScriptedManager : public IJSONManager {
public:
    // One scripted answer of GetStringAttribute: the result, the length to
    // report and, for a result of 1, the text to deliver.
    struct StringReply {
        int result;
        int length;
        std::wstring text;
    };

    explicit ScriptedManager(ManagerPtr inner) : inner_(std::move(inner)) {}

    // Scripts. Answers are consumed in order; without one the call is
    // forwarded.
    std::deque<StringReply> stringReplies;
    std::set<std::wstring> refusedElements;    // AddElement with these names gives null
    std::set<std::wstring> failingAttributes;  // Set...Attribute of these names gives -101
    int failingStringWrite = 0;  // the n-th SetStringAttribute call (1-based) gives -101

    // Records.
    std::vector<std::wstring> calls;        // "<operation> <name> <type>" in call order
    std::vector<int> stringLengthsIn;       // *length on entry to GetStringAttribute
    std::vector<JSONNode*> attributeNodes;  // node given to each Set...Attribute
    int stringWrites = 0;

    IJSONManager& Inner() { return *inner_; }

    void ClearDocument() override { inner_->ClearDocument(); }
    int CreateNewDocument() override { return inner_->CreateNewDocument(); }
    int ImportFromJSONFile(const wchar_t* path) override {
        return inner_->ImportFromJSONFile(path);
    }
    int ImportFromJSONString(const char* text, int length) override {
        return inner_->ImportFromJSONString(text, length);
    }
    int SaveToJSONFile(const wchar_t* path) override { return inner_->SaveToJSONFile(path); }
    JSONNode* GetRootElement() override { return inner_->GetRootElement(); }

    JSONNode* AddElement(JSONNode* parent, const wchar_t* name, int type) override {
        Record(L"AddElement", name, std::to_wstring(type));
        if (refusedElements.count(name) != 0) return nullptr;
        return inner_->AddElement(parent, name, type);
    }
    JSONNode* GetElement(JSONNode* parent, const wchar_t* name) override {
        Record(L"GetElement", name);
        return inner_->GetElement(parent, name);
    }
    JSONNode* GetArrayElement(JSONNode* array, const wchar_t* name, int index) override {
        Record(L"GetArrayElement", name, std::to_wstring(index));
        return inner_->GetArrayElement(array, name, index);
    }
    int SetDWORDAttribute(JSONNode* node, const wchar_t* name, DWORD value) override {
        Record(L"SetDWORDAttribute", name);
        attributeNodes.push_back(node);
        if (failingAttributes.count(name) != 0) return ZELT_FAILED;
        return inner_->SetDWORDAttribute(node, name, value);
    }
    int SetStringAttribute(JSONNode* node, const wchar_t* name, const wchar_t* value) override {
        Record(L"SetStringAttribute", name);
        attributeNodes.push_back(node);
        ++stringWrites;
        if (failingAttributes.count(name) != 0 || stringWrites == failingStringWrite)
            return ZELT_FAILED;
        return inner_->SetStringAttribute(node, name, value);
    }
    int GetDWORDAttribute(JSONNode* node, const wchar_t* name, DWORD* value) override {
        Record(L"GetDWORDAttribute", name);
        return inner_->GetDWORDAttribute(node, name, value);
    }
    int GetStringAttribute(JSONNode* node, const wchar_t* name, wchar_t* buffer,
                           int* length) override {
        Record(L"GetStringAttribute", name);
        stringLengthsIn.push_back(*length);
        if (stringReplies.empty()) return inner_->GetStringAttribute(node, name, buffer, length);
        StringReply reply = stringReplies.front();
        stringReplies.pop_front();
        if (reply.result == ZELT_SUCCESS) {
            const std::size_t count =
                std::min(reply.text.size(), static_cast<std::size_t>(*length - 1));
            std::copy(reply.text.begin(), reply.text.begin() + static_cast<std::ptrdiff_t>(count),
                      buffer);
            buffer[count] = L'\0';
        }
        *length = reply.length;
        return reply.result;
    }
    int GetArrayStringAttribute(JSONNode* array, const wchar_t* name, int index, wchar_t* buffer,
                                int* length) override {
        Record(L"GetArrayStringAttribute", name);
        return inner_->GetArrayStringAttribute(array, name, index, buffer, length);
    }
    int GetArrayCount(JSONNode* array, const wchar_t* name) override {
        Record(L"GetArrayCount", name);
        return inner_->GetArrayCount(array, name);
    }
    int RemoveElement(JSONNode* parent, const wchar_t* name) override {
        Record(L"RemoveElement", name);
        return inner_->RemoveElement(parent, name);
    }

private:
    void Record(const wchar_t* operation, const wchar_t* name, const std::wstring& extra = L"") {
        std::wstring call = std::wstring(operation) + L" " + (name != nullptr ? name : L"(null)");
        if (!extra.empty()) call += L" " + extra;
        calls.push_back(call);
    }

    ManagerPtr inner_;
};

#endif  // ZELT_TESTS_ELEMENTTESTING_H
