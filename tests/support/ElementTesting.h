// ElementTesting.h: helpers for the suites of the configuration elements:
// elements that die with the test, writing an element into a new document and
// reading one from a text, building and reading string lists, and the sample
// documents of examples/.
//
// Managers made here are owned by a ManagerPtr, which leaves the debug dump
// callback in place when the manager goes (see ManagerTesting.h).
#ifndef ZELT_TESTS_ELEMENTTESTING_H
#define ZELT_TESTS_ELEMENTTESTING_H

#include <zelt/zelt.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "support/ManagerTesting.h"
#include "support/TempFile.h"

// Elements are destroyed through their virtual destructor.
template <class Element>
using ElementPtr = std::unique_ptr<Element>;

// The debug messages a MessageCapture recorded, in order.
using Messages = std::vector<std::wstring>;

// ---- Writing and reading

// Writes the element under the root of a new, empty document and gives the
// saved bytes.
template <class Element>
std::string WrittenText(Element& element) {
    ManagerPtr manager = ManagerWithEmptyDocument();
    EXPECT_EQ(element.WriteToJSONMgr(manager.get(), manager->GetRootElement(), 1), ZELT_SUCCESS);
    return SavedText(*manager);
}

// Writes a whole configuration, whose root element starts the document
// itself, through a manager without one, and gives the saved bytes.
inline std::string WrittenConfigurationText(VextorJSConfig::IVextorJSConfig& root) {
    ManagerPtr manager = NewManager();
    EXPECT_EQ(root.WriteToJSONMgr(manager.get(), nullptr, 1), ZELT_SUCCESS);
    return SavedText(*manager);
}

// Reads the element from the member `name` of the root of the document parsed
// from text (which must import) and gives the read's result.
template <class Element>
int ReadFromDocument(Element& element, const std::string& text, const wchar_t* name) {
    ManagerPtr manager = ManagerWithText(text);
    return element.ReadFromJSONMgr(manager.get(), manager->GetElement(nullptr, name));
}

// ---- String lists

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

inline ElementPtr<VextorJSConfig::IIPList> MakeIPList(const std::vector<std::wstring>& values) {
    return MakeList(&VextorJSConfig::IPList_CreateNewInstance,
                    &VextorJSConfig::IPListArray_CreateNewInstance, values);
}

inline ElementPtr<VextorJSConfig::IVPNDescList> MakeVPNDescList(
    const std::vector<std::wstring>& values) {
    return MakeList(&VextorJSConfig::VPNDescList_CreateNewInstance,
                    &VextorJSConfig::VPNDescListArray_CreateNewInstance, values);
}

inline ElementPtr<VextorJSConfig::IClientRequestHeaders> MakeClientRequestHeaders(
    const std::vector<std::wstring>& values) {
    return MakeList(&VextorJSConfig::ClientRequestHeaders_CreateNewInstance,
                    &VextorJSConfig::ClientRequestHeadersArray_CreateNewInstance, values);
}

// The strings of a list's entries, in order.
template <class List>
std::vector<std::wstring> ListValues(List& list) {
    std::vector<std::wstring> values;
    for (DWORD index = 0; index < list.GetItemCount(); ++index)
        values.push_back(*list.GetItem(index)->GetStringValue());
    return values;
}

// ---- Sample documents

// The path of a sample document in examples/.
inline std::string SamplePath(const std::string& name) {
    return std::string(ZELT_SOURCE_DIR) + "/examples/" + name;
}

// The bytes of a sample document in examples/.
inline std::string SampleText(const std::string& name) { return ReadFileBytes(SamplePath(name)); }

#endif  // ZELT_TESTS_ELEMENTTESTING_H
