// InterceptingManager.h: a manager that owns a real one and passes every call
// to it, except where a test has made a call fail or scripted its answer, and
// that records the calls the elements make. With it every write and read
// failure of an element is reachable, and the order of an element's calls and
// the buffers of its string reads can be checked.
#ifndef ZELT_TESTS_INTERCEPTINGMANAGER_H
#define ZELT_TESTS_INTERCEPTINGMANAGER_H

#include <zelt/zelt.h>

#include <algorithm>
#include <cstddef>
#include <deque>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "support/ManagerTesting.h"

// What InterceptingManager records for AddElement(parent, name, type).
inline std::wstring AddElementCall(const std::wstring& name, int type) {
    return L"AddElement " + name + L" " + std::to_wstring(type);
}

class InterceptingManager final : public IJSONManager {
public:
    // One scripted answer of GetStringAttribute: the result, the length to
    // report and, for a result of ZELT_SUCCESS, the text to deliver.
    struct StringReply {
        int result;
        int length;
        std::wstring text;
    };

    explicit InterceptingManager(ManagerPtr real) : real_(std::move(real)) {}

    // The real manager, to look at the document without being recorded.
    IJSONManager& Inner() { return *real_; }

    // Failures.
    bool failingCreateNewDocument = false;     // CreateNewDocument gives -101
    bool nullRootElement = false;              // GetRootElement gives null
    std::set<std::wstring> refusedElements;    // AddElement of these names gives null
    std::set<std::wstring> failingAttributes;  // Set...Attribute of these names gives -101
    int failingStringWrite = 0;                // the n-th SetStringAttribute (1-based) gives -101
    std::set<std::wstring> failingLargeStringReads;  // GetStringAttribute of these names with a
                                                     // buffer above 1024 (a second step) gives -101

    // Scripted string reads: every GetStringAttribute of a name listed here is
    // answered by its reply; otherwise the next reply of stringReplies, in
    // order, answers whatever name is read; without one the call is passed on.
    std::map<std::wstring, StringReply> stringRepliesByName;
    std::deque<StringReply> stringReplies;

    // Records.
    std::vector<std::wstring> calls;        // "<operation> <name> [<type or index>]" in call order
    std::vector<int> stringLengthsIn;       // *length on entry to GetStringAttribute
    std::vector<JSONNode*> attributeNodes;  // node given to each Set...Attribute
    int stringWrites = 0;                   // SetStringAttribute calls
    int failedLargeStringReads = 0;         // second steps made to fail

    void ClearDocument() override { real_->ClearDocument(); }
    int CreateNewDocument() override {
        return failingCreateNewDocument ? ZELT_FAILED : real_->CreateNewDocument();
    }
    int ImportFromJSONFile(const wchar_t* path) override { return real_->ImportFromJSONFile(path); }
    int ImportFromJSONString(const char* utf8Text, int length) override {
        return real_->ImportFromJSONString(utf8Text, length);
    }
    int SaveToJSONFile(const wchar_t* path) override { return real_->SaveToJSONFile(path); }
    JSONNode* GetRootElement() override {
        return nullRootElement ? nullptr : real_->GetRootElement();
    }

    JSONNode* AddElement(JSONNode* parent, const wchar_t* name, int type) override {
        Record(L"AddElement", name, std::to_wstring(type));
        if (Listed(refusedElements, name)) return nullptr;
        return real_->AddElement(parent, name, type);
    }
    JSONNode* GetElement(JSONNode* parent, const wchar_t* name) override {
        Record(L"GetElement", name);
        return real_->GetElement(parent, name);
    }
    JSONNode* GetArrayElement(JSONNode* array, const wchar_t* name, int index) override {
        Record(L"GetArrayElement", name, std::to_wstring(index));
        return real_->GetArrayElement(array, name, index);
    }
    int SetDWORDAttribute(JSONNode* node, const wchar_t* name, DWORD value) override {
        Record(L"SetDWORDAttribute", name);
        attributeNodes.push_back(node);
        if (Listed(failingAttributes, name)) return ZELT_FAILED;
        return real_->SetDWORDAttribute(node, name, value);
    }
    int SetStringAttribute(JSONNode* node, const wchar_t* name, const wchar_t* value) override {
        Record(L"SetStringAttribute", name);
        attributeNodes.push_back(node);
        ++stringWrites;
        if (Listed(failingAttributes, name) || stringWrites == failingStringWrite)
            return ZELT_FAILED;
        return real_->SetStringAttribute(node, name, value);
    }
    int GetDWORDAttribute(JSONNode* node, const wchar_t* name, DWORD* value) override {
        Record(L"GetDWORDAttribute", name);
        return real_->GetDWORDAttribute(node, name, value);
    }
    int GetStringAttribute(JSONNode* node, const wchar_t* name, wchar_t* buffer,
                           int* length) override {
        Record(L"GetStringAttribute", name);
        stringLengthsIn.push_back(*length);
        if (name != nullptr) {
            const auto scripted = stringRepliesByName.find(name);
            if (scripted != stringRepliesByName.end())
                return Answer(scripted->second, buffer, length);
            if (Listed(failingLargeStringReads, name) && *length > 1024) {
                ++failedLargeStringReads;
                return ZELT_FAILED;
            }
        }
        if (!stringReplies.empty()) {
            const StringReply reply = stringReplies.front();
            stringReplies.pop_front();
            return Answer(reply, buffer, length);
        }
        return real_->GetStringAttribute(node, name, buffer, length);
    }
    int GetArrayStringAttribute(JSONNode* array, const wchar_t* name, int index, wchar_t* buffer,
                                int* length) override {
        Record(L"GetArrayStringAttribute", name);
        return real_->GetArrayStringAttribute(array, name, index, buffer, length);
    }
    int GetArrayCount(JSONNode* array, const wchar_t* name) override {
        Record(L"GetArrayCount", name);
        return real_->GetArrayCount(array, name);
    }
    int RemoveElement(JSONNode* parent, const wchar_t* name) override {
        Record(L"RemoveElement", name);
        return real_->RemoveElement(parent, name);
    }

private:
    static bool Listed(const std::set<std::wstring>& names, const wchar_t* name) {
        return name != nullptr && names.count(name) != 0;
    }

    // Delivers a scripted reply through the caller's buffer and length.
    static int Answer(const StringReply& reply, wchar_t* buffer, int* length) {
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

    void Record(const wchar_t* operation, const wchar_t* name, const std::wstring& extra = L"") {
        std::wstring call = std::wstring(operation) + L" " + (name != nullptr ? name : L"(null)");
        if (!extra.empty()) call += L" " + extra;
        calls.push_back(call);
    }

    ManagerPtr real_;
};

// One write failure case of an element: the node the manager refuses to
// create or the attribute it fails to set, and what must follow.
struct WriteFailure {
    const wchar_t* failingAdd;  // AddElement of this name gives null
    const wchar_t* failingSet;  // Set...Attribute of this name fails
    std::vector<std::wstring> messages;
    std::string partialDocument;
};

// Printed as the failure it describes, so that test names stay the same
// from run to run.
inline void PrintTo(const WriteFailure& failure, std::ostream* out) {
    if (failure.failingAdd != nullptr) *out << "Add" << Narrow(failure.failingAdd);
    if (failure.failingSet != nullptr) *out << "Set" << Narrow(failure.failingSet);
}

// Makes manager fail where the case says.
inline void InjectFailure(InterceptingManager& manager, const WriteFailure& failure) {
    if (failure.failingAdd != nullptr) manager.refusedElements.insert(failure.failingAdd);
    if (failure.failingSet != nullptr) manager.failingAttributes.insert(failure.failingSet);
}

#endif  // ZELT_TESTS_INTERCEPTINGMANAGER_H
