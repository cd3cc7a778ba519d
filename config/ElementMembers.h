// ElementMembers.h: how elements hold their members, how a member of any kind
// is reset and copied, and the accessors that every element shares (required
// and optional DWORDs, strings and children).
#ifndef ZELT_CONFIG_ELEMENTMEMBERS_H
#define ZELT_CONFIG_ELEMENTMEMBERS_H

#include "config/ElementMessages.h"

#include <zelt/Types.h>

#include <string>

namespace VextorJSConfig {

// An optional DWORD attribute: the value followed by its presence flag.
struct OptionalDWORD {
    DWORD value = 0;
    DWORD present = 0;
    void Clear() {
        value = 0;
        present = 0;
    }
};

// An optional string attribute: the text and its presence flag. A text whose
// flag is 0 is empty.
struct OptionalString {
    std::wstring value;
    DWORD present = 0;
    void Clear() {
        value.clear();
        present = 0;
    }
};

// An optional child element: the embedded child followed by its presence
// flag. The child may keep content while its flag is 0: only Clear, CopyFrom
// and the setter replace it, and CopyFrom copies it whatever the flag says.
template <class Child>
struct OptionalChild {
    Child element;
    DWORD present = 0;
    void Clear() {
        element.Clear();
        present = 0;
    }
    void CopyFrom(const OptionalChild& other) {
        element.CopyFrom(other.element);
        present = other.present;
    }
};

// Resets one member to its default: zero, empty, absent.
inline void ResetMember(DWORD& member) { member = 0; }
inline void ResetMember(std::wstring& member) { member.clear(); }
// The optional holders and the children reset themselves.
template <class Member>
void ResetMember(Member& member) {
    member.Clear();
}

// Makes one member a copy of the same member of another element.
inline void CopyMember(DWORD& member, const DWORD& source) { member = source; }
inline void CopyMember(std::wstring& member, const std::wstring& source) { member = source; }
inline void CopyMember(OptionalDWORD& member, const OptionalDWORD& source) { member = source; }
inline void CopyMember(OptionalString& member, const OptionalString& source) { member = source; }
// Children and optional children are copied deeply by their own CopyFrom.
template <class Member>
void CopyMember(Member& member, const Member& source) {
    member.CopyFrom(source);
}

// What every factory returns: a new element, put through Clear by way of its
// interface, so that it starts from its defaults.
template <class Interface, class Implementation>
Interface* NewClearedElement() {
    Interface* element = new Implementation();
    element->Clear();
    return element;
}

// Defines the exported factory Name_CreateNewInstance of the element IName,
// implemented by CName. The exported names are part of the binary contract.
#define ZELT_ELEMENT_FACTORY(Name) \
    I##Name* Name##_CreateNewInstance() { return NewClearedElement<I##Name, C##Name>(); }

// Required DWORD setter: null is refused with the set-Attribute message.
int SetRequiredDWORD(DWORD& member, const DWORD* value, const wchar_t* element, const wchar_t* key);
// Optional DWORD: null makes it absent (value 0).
void SetOptional(OptionalDWORD& member, const DWORD* value);
int GetOptional(const OptionalDWORD& member, DWORD* out);

// Required string setter: null is refused with the set-Attribute message. The
// member is emptied before the self-check, so passing the member itself
// leaves it empty; callers rely on exactly this.
int SetRequiredString(std::wstring& member, const std::wstring* value, const wchar_t* element,
                      const wchar_t* key);
// Optional string: emptied and absent first; null stops there.
void SetOptional(OptionalString& member, const std::wstring* value);
int GetOptional(const OptionalString& member, std::wstring* out);

// Required child setter: the embedded child copies *value.
template <class Child, class Interface>
int SetRequiredChild(Child& child, const Interface* value, const wchar_t* childName) {
    if (value == nullptr) return ReportFailure(Message::SetChildNull(childName));
    child.CopyFrom(*value);
    return ZELT_SUCCESS;
}

// Optional child setter: null only clears the flag and keeps the content.
template <class Child, class Interface>
void SetOptional(OptionalChild<Child>& member, const Interface* value) {
    if (value == nullptr) {
        member.present = 0;
        return;
    }
    member.element.CopyFrom(*value);
    member.present = 1;
}

// Optional child getter: hands out the embedded child itself.
template <class Child, class Interface>
int GetOptional(OptionalChild<Child>& member, Interface** out) {
    if (member.present == 0) return ZELT_NOT_PRESENT;
    *out = &member.element;
    return ZELT_SUCCESS;
}

}  // namespace VextorJSConfig

#endif  // ZELT_CONFIG_ELEMENTMEMBERS_H
