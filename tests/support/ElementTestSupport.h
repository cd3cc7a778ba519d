// ElementTestSupport.h: conveniences shared by the configuration element
// suites: elements that die with the test, the sample documents, the virtual
// slot of an interface's member function, and a manager that fails chosen
// operations so that every write and read failure of an element is reachable.
#ifndef ZELT_TESTS_ELEMENTTESTSUPPORT_H
#define ZELT_TESTS_ELEMENTTESTSUPPORT_H

#include <zelt/zelt.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "support/ManagerHelpers.h"
#include "support/TempFile.h"

using Messages = std::vector<std::wstring>;

// Elements are destroyed through their virtual destructor.
template <class Element>
using ElementPtr = std::unique_ptr<Element>;

// The element suites delete their managers through the virtual destructor:
// zeltDestroyJSONManager would also remove the debug dump callback, and the
// suites go on recording messages after a manager is gone.
using DocumentPtr = std::unique_ptr<IJSONManager>;

// A manager without a document.
inline DocumentPtr EmptyManager() { return DocumentPtr(zeltCreateJSONManager(nullptr, 0)); }

// A manager holding the document parsed from text; the test fails if the text
// does not import.
inline DocumentPtr DocumentManager(const std::string& text) {
    DocumentPtr manager = EmptyManager();
    EXPECT_EQ(ImportText(*manager, text), ZELT_SUCCESS) << text;
    return manager;
}

// The bytes of a sample document in examples/.
inline std::string SampleText(const std::string& name) {
    return ReadFileBytes(std::string(ZELT_SOURCE_DIR) + "/examples/" + name);
}

// A new list made by makeList holding one entry per value, in order.
template <class List, class Entry>
ElementPtr<List> MakeList(List* (*makeList)(), Entry* (*makeEntry)(),
                          const std::vector<std::wstring>& values) {
    ElementPtr<List> list(makeList());
    for (const std::wstring& value : values) {
        ElementPtr<Entry> entry(makeEntry());
        entry->SetStringValue(&value);
        list->AddItem(entry.get());
    }
    return list;
}

// The strings of a list's entries, in order.
template <class List>
std::vector<std::wstring> ListValues(List& list) {
    std::vector<std::wstring> values;
    for (DWORD index = 0; index < list.GetItemCount(); ++index)
        values.push_back(*list.GetItem(index)->GetStringValue());
    return values;
}

// The virtual slot that a pointer to a virtual member function names, on the
// Itanium C++ ABI: the pointer holds 1 + the byte offset of its vtable entry,
// and the virtual destructor takes the first two entries, so slot k >= 1 is
// entry k + 1. Returns -1 for anything that is not such a pointer.
template <class MemberFunctionPointer>
long VirtualSlotOf(MemberFunctionPointer pointer) {
    struct Representation {
        std::uintptr_t ptr;
        std::ptrdiff_t adj;
    };
    static_assert(sizeof(MemberFunctionPointer) == sizeof(Representation),
                  "not an Itanium member function pointer");
    Representation representation{};
    std::memcpy(&representation, &pointer, sizeof representation);
    const std::uintptr_t entrySize = sizeof(void*);
    if (representation.adj != 0 || representation.ptr % entrySize != 1) return -1;
    return static_cast<long>((representation.ptr - 1) / entrySize) - 1;
}

// Passes every call to a real manager, except the ones a test has made fail:
// AddElement of a listed name gives null, SetDWORDAttribute and
// SetStringAttribute of a listed name give -101, GetStringAttribute of a
// listed name gives a scripted result and length, and its second step (a
// buffer above 1024 characters) can be made to fail. CreateNewDocument and
// GetRootElement can be made to fail too.
class FaultInjectingManager final : public IJSONManager {
public:
    explicit FaultInjectingManager(IJSONManager& real) : real_(real) {}

    std::set<std::wstring> failAddElement;
    std::set<std::wstring> failSetAttribute;
    std::set<std::wstring> failLargeStringRead;
    std::map<std::wstring, std::pair<int, int>> scriptedStringRead;  // result, length
    bool failCreateNewDocument = false;
    bool nullRootElement = false;

    void ClearDocument() override { real_.ClearDocument(); }
    int CreateNewDocument() override {
        return failCreateNewDocument ? ZELT_FAILED : real_.CreateNewDocument();
    }
    int ImportFromJSONFile(const wchar_t* path) override { return real_.ImportFromJSONFile(path); }
    int ImportFromJSONString(const char* utf8Text, int length) override {
        return real_.ImportFromJSONString(utf8Text, length);
    }
    int SaveToJSONFile(const wchar_t* path) override { return real_.SaveToJSONFile(path); }
    JSONNode* GetRootElement() override {
        return nullRootElement ? nullptr : real_.GetRootElement();
    }

    JSONNode* AddElement(JSONNode* parent, const wchar_t* name, int type) override {
        return Listed(failAddElement, name) ? nullptr : real_.AddElement(parent, name, type);
    }
    JSONNode* GetElement(JSONNode* parent, const wchar_t* name) override {
        return real_.GetElement(parent, name);
    }
    JSONNode* GetArrayElement(JSONNode* array, const wchar_t* name, int index) override {
        return real_.GetArrayElement(array, name, index);
    }
    int SetDWORDAttribute(JSONNode* node, const wchar_t* name, DWORD value) override {
        return Listed(failSetAttribute, name) ? ZELT_FAILED
                                              : real_.SetDWORDAttribute(node, name, value);
    }
    int SetStringAttribute(JSONNode* node, const wchar_t* name, const wchar_t* value) override {
        return Listed(failSetAttribute, name) ? ZELT_FAILED
                                              : real_.SetStringAttribute(node, name, value);
    }
    int GetDWORDAttribute(JSONNode* node, const wchar_t* name, DWORD* value) override {
        return real_.GetDWORDAttribute(node, name, value);
    }
    int GetStringAttribute(JSONNode* node, const wchar_t* name, wchar_t* buffer,
                           int* length) override {
        if (name != nullptr) {
            const auto scripted = scriptedStringRead.find(name);
            if (scripted != scriptedStringRead.end()) {
                *length = scripted->second.second;
                return scripted->second.first;
            }
            if (Listed(failLargeStringRead, name) && *length > 1024) {
                ++largeStringReads;
                return ZELT_FAILED;
            }
        }
        return real_.GetStringAttribute(node, name, buffer, length);
    }
    int GetArrayStringAttribute(JSONNode* array, const wchar_t* name, int index, wchar_t* buffer,
                                int* length) override {
        return real_.GetArrayStringAttribute(array, name, index, buffer, length);
    }
    int GetArrayCount(JSONNode* array, const wchar_t* name) override {
        return real_.GetArrayCount(array, name);
    }
    int RemoveElement(JSONNode* parent, const wchar_t* name) override {
        return real_.RemoveElement(parent, name);
    }

    // How many second-step string reads were made to fail.
    int largeStringReads = 0;

private:
    static bool Listed(const std::set<std::wstring>& names, const wchar_t* name) {
        return name != nullptr && names.count(name) != 0;
    }

    IJSONManager& real_;
};

#endif  // ZELT_TESTS_ELEMENTTESTSUPPORT_H
