#include "config/ElementMessages.h"

#include "diagnostics/DebugDumpCallback.h"

#include <zelt/Types.h>

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
std::wstring WriteRequiredChild(const wchar_t* child) {
    return ElementText(L"write require element failed.", child);
}
std::wstring WriteOptionalChild(const wchar_t* child) {
    return ElementText(L"write optional element failed.", child);
}
std::wstring WriteListEntry(const wchar_t* entry) {
    return ElementText(L"write none to multiple element failed.", entry);
}
std::wstring ReadRequiredChild(const wchar_t* child) {
    return ElementText(L"read require element failed.", child);
}
std::wstring ReadOptionalChild(const wchar_t* child) {
    return ElementText(L"read  optional element failed.", child);
}
std::wstring ReadListEntry(const wchar_t* entry) {
    return ElementText(L"read  multiple element failed.", entry);
}
std::wstring WriteRequiredDWORD(const wchar_t* element, const wchar_t* key) {
    return AttributeText(L"write required DWORD Attribute failed.", element, key);
}
std::wstring WriteOptionalDWORD(const wchar_t* element, const wchar_t* key) {
    return AttributeText(L"write optional DWORD Attribute failed.", element, key);
}
std::wstring WriteString(const wchar_t* element, const wchar_t* key) {
    return AttributeText(L"write required string Attribute failed.", element, key);
}
std::wstring ReadRequiredDWORD(const wchar_t* element, const wchar_t* key) {
    return AttributeText(L"read required dword/bool Attribute failed.", element, key);
}
std::wstring ReadRequiredString(const wchar_t* element, const wchar_t* key) {
    return AttributeText(L"read required String Attribute failed.", element, key);
}
std::wstring SetAttributeNull(const wchar_t* element, const wchar_t* key) {
    return AttributeText(L"set Attribute failed due to parama pointer is NULL.", element, key);
}
std::wstring SetChildNull(const wchar_t* child) {
    return ElementText(L"Set element failed due to param is NULL.", child);
}
}  // namespace Message

}  // namespace VextorJSConfig
