#include "config/MemberIO.h"

#include <cwchar>
#include <memory>
#include <new>

namespace VextorJSConfig {

namespace {
constexpr int kFirstBufferLength = 1024;

// The text up to its terminator, never past the buffer's end.
void AssignUpToTerminator(std::wstring& out, const wchar_t* buffer, int capacity) {
    out.assign(buffer, wcsnlen(buffer, static_cast<std::size_t>(capacity)));
}
}  // namespace

StringRead ReadStringInTwoSteps(IJSONManager* mgr, JSONNode* node, const wchar_t* key,
                                std::wstring& out) {
    wchar_t buffer[kFirstBufferLength];
    buffer[0] = L'\0';
    int length = kFirstBufferLength;
    const int first = mgr->GetStringAttribute(node, key, buffer, &length);
    if (first == ZELT_SUCCESS) {
        AssignUpToTerminator(out, buffer, kFirstBufferLength);
        return StringRead::Read;
    }
    if (first != ZELT_BUFFER_TOO_SMALL || length <= kFirstBufferLength) return StringRead::Missing;

    // The second read uses a buffer of the reported length; if it cannot be
    // had, the member stays empty as for any failing second step.
    const int capacity = length;
    std::unique_ptr<wchar_t[]> larger(new (std::nothrow)
                                          wchar_t[static_cast<std::size_t>(capacity)]);
    if (!larger) return StringRead::SecondStepFailed;
    larger[0] = L'\0';
    if (mgr->GetStringAttribute(node, key, larger.get(), &length) != ZELT_SUCCESS)
        return StringRead::SecondStepFailed;
    AssignUpToTerminator(out, larger.get(), capacity);
    return StringRead::Read;
}

bool HasWriteManager(IJSONManager* mgr) {
    if (mgr != nullptr) return true;
    DeliverMessage(Message::WriteNoManager());
    return false;
}

JSONNode* ElementNodeOrMessage(JSONNode* node, const wchar_t* element) {
    if (node == nullptr) DeliverMessage(Message::ElementNodeMissing(element));
    return node;
}

JSONNode* CreateElementNode(IJSONManager* mgr, JSONNode* parent, const wchar_t* element) {
    if (!HasWriteManager(mgr)) return nullptr;
    return ElementNodeOrMessage(mgr->AddElement(parent, element, ZELT_ADD_OBJECT), element);
}

bool MemberWriter::WriteDWORD(const wchar_t* key, DWORD value) {
    JSONNode* target = mgr_->AddElement(node_, key, ZELT_ADD_PARENT_FOR_DWORD);
    return mgr_->SetDWORDAttribute(target, key, value) == ZELT_SUCCESS;
}

bool MemberWriter::WriteString(const wchar_t* key, const std::wstring& value) {
    JSONNode* target = mgr_->AddElement(node_, key, ZELT_ADD_PARENT_FOR_STRING);
    return mgr_->SetStringAttribute(target, key, value.c_str()) == ZELT_SUCCESS;
}

bool MemberWriter::RequiredDWORD(const wchar_t* key, DWORD value) {
    if (WriteDWORD(key, value)) return true;
    DeliverMessage(
        Message::Attribute(Message::AttributeFailure::WriteRequiredDWORD, element_, key));
    return false;
}

bool MemberWriter::OptionalDWORD(const wchar_t* key, const VextorJSConfig::OptionalDWORD& member) {
    if (member.present == 0 || WriteDWORD(key, member.value)) return true;
    DeliverMessage(
        Message::Attribute(Message::AttributeFailure::WriteOptionalDWORD, element_, key));
    return false;
}

bool MemberWriter::RequiredString(const wchar_t* key, const std::wstring& value) {
    if (WriteString(key, value)) return true;
    DeliverMessage(Message::Attribute(Message::AttributeFailure::WriteString, element_, key));
    return false;
}

bool MemberWriter::OptionalString(const wchar_t* key,
                                  const VextorJSConfig::OptionalString& member) {
    if (member.present == 0) return true;
    return RequiredString(key, member.value);
}

bool MemberReader::RequiredDWORD(const wchar_t* key, DWORD& value) {
    DWORD read = 0;
    if (mgr_->GetDWORDAttribute(node_, key, &read) == ZELT_SUCCESS) {
        value = read;
        return true;
    }
    DeliverMessage(Message::Attribute(Message::AttributeFailure::ReadRequiredDWORD, element_, key));
    return false;
}

bool MemberReader::OptionalDWORD(const wchar_t* key, VextorJSConfig::OptionalDWORD& member) {
    DWORD read = 0;
    if (mgr_->GetDWORDAttribute(node_, key, &read) == ZELT_SUCCESS) {
        member.value = read;
        member.present = 1;
    }
    return true;
}

bool MemberReader::RequiredString(const wchar_t* key, std::wstring& value) {
    // A failing second step leaves the member empty and the read goes on.
    if (ReadStringInTwoSteps(mgr_, node_, key, value) != StringRead::Missing) return true;
    DeliverMessage(
        Message::Attribute(Message::AttributeFailure::ReadRequiredString, element_, key));
    return false;
}

bool MemberReader::OptionalString(const wchar_t* key, VextorJSConfig::OptionalString& member) {
    if (ReadStringInTwoSteps(mgr_, node_, key, member.value) == StringRead::Read)
        member.present = 1;
    return true;
}

}  // namespace VextorJSConfig
