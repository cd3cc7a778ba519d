#include "config/ElementMembers.h"

namespace VextorJSConfig {

int SetRequiredDWORD(DWORD& member, const DWORD* value, const wchar_t* element,
                     const wchar_t* key) {
    if (value == nullptr)
        return ReportFailure(Message::Attribute(Message::AttributeFailure::SetNull, element, key));
    member = *value;
    return ZELT_SUCCESS;
}

void SetOptional(OptionalDWORD& member, const DWORD* value) {
    member.Clear();
    if (value == nullptr) return;
    member.value = *value;
    member.present = 1;
}

int GetOptional(const OptionalDWORD& member, DWORD* out) {
    if (member.present == 0) return ZELT_NOT_PRESENT;
    *out = member.value;
    return ZELT_SUCCESS;
}

int SetRequiredString(std::wstring& member, const std::wstring* value, const wchar_t* element,
                      const wchar_t* key) {
    if (value == nullptr)
        return ReportFailure(Message::Attribute(Message::AttributeFailure::SetNull, element, key));
    member.clear();
    if (value != &member) member = *value;
    return ZELT_SUCCESS;
}

void SetOptional(OptionalString& member, const std::wstring* value) {
    member.Clear();
    if (value == nullptr) return;
    member.present = 1;
    if (value != &member.value) member.value = *value;
}

int GetOptional(const OptionalString& member, std::wstring* out) {
    if (member.present == 0) return ZELT_NOT_PRESENT;
    if (out != &member.value) *out = member.value;
    return ZELT_SUCCESS;
}

}  // namespace VextorJSConfig
