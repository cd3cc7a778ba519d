#include "config/ElementMessages.h"

#include "diagnostics/DebugDumpCallback.h"

#include <zelt/Types.h>

#include <iterator>

namespace VextorJSConfig {

void DeliverMessage(const std::wstring& text) {
    if (DebugDumpCallback callback = CurrentDebugDumpCallback()) callback(text.c_str());
}

int ReportFailure(const std::wstring& text) {
    DeliverMessage(text);
    return ZELT_FAILED;
}

namespace {
constexpr const wchar_t* kPrefix = L"JSONManager: ";

// "JSONManager: <situation> element:<element>"
std::wstring ElementText(const wchar_t* situation, const wchar_t* element) {
    return std::wstring(kPrefix) + situation + L" element:" + element;
}

// "JSONManager: <situation> element:<element>, attr:<key>"
std::wstring AttributeText(const wchar_t* situation, const wchar_t* element, const wchar_t* key) {
    return ElementText(situation, element) + L", attr:" + key;
}
}  // namespace

namespace Message {
std::wstring WriteNoManager() {
    return std::wstring(kPrefix) + L"WriteToJSONMgr require xmlmanager pointer is NULL.";
}
std::wstring ReadNoManager() {
    return std::wstring(kPrefix) + L"ReadFromJSONMgr require xmlmanager pointer is NULL.";
}
std::wstring ElementNodeMissing(const wchar_t* element) {
    // The only text with a blank after "element:".
    return std::wstring(kPrefix) + L"required element pointer is NULL. element: " + element;
}
// The situations in the order of ChildFailure and AttributeFailure.
// Contract: the agent's logs are read by these words, so they stay exactly as
// they are, typing slips and double blanks included.
constexpr const wchar_t* kChildSituations[] = {
    L"write require element failed.",          L"write optional element failed.",
    L"write none to multiple element failed.", L"read require element failed.",
    L"read  optional element failed.",         L"read  multiple element failed.",
};
constexpr const wchar_t* kAttributeSituations[] = {
    L"write required DWORD Attribute failed.",
    L"write optional DWORD Attribute failed.",
    L"write required string Attribute failed.",
    L"read required dword/bool Attribute failed.",
    L"read required String Attribute failed.",
    L"set Attribute failed due to parama pointer is NULL.",
};
static_assert(std::size(kChildSituations) == static_cast<int>(ChildFailure::ReadListEntry) + 1);
static_assert(std::size(kAttributeSituations) == static_cast<int>(AttributeFailure::SetNull) + 1);

std::wstring Child(ChildFailure failure, const wchar_t* child) {
    return ElementText(kChildSituations[static_cast<int>(failure)], child);
}
std::wstring Attribute(AttributeFailure failure, const wchar_t* element, const wchar_t* key) {
    return AttributeText(kAttributeSituations[static_cast<int>(failure)], element, key);
}
std::wstring SetChildNull(const wchar_t* child) {
    return ElementText(L"Set element failed due to param is NULL.", child);
}
}  // namespace Message

}  // namespace VextorJSConfig
