// MemberIO.h: the write and read steps that every element performs on its
// members, over the manager's interface.
//
// An element's WriteToJSONMgr (ElementBase.h) creates its node with
// CreateElementNode and then chains MemberWriter calls in member order; its
// ReadFromJSONMgr checks the manager, clears itself, chains MemberReader calls
// in member order and ends with FinishRead. Each call that fails has already
// delivered its message and returns false, so the chain stops at the first
// failure.
#ifndef ZELT_CONFIG_MEMBERIO_H
#define ZELT_CONFIG_MEMBERIO_H

#include "config/ElementMembers.h"
#include "config/ElementMessages.h"

#include <zelt/JSONManager.h>

#include <string>

namespace VextorJSConfig {

// Outcome of the two-step string read.
enum class StringRead {
    Read,              // the text was delivered
    SecondStepFailed,  // a larger buffer was needed and its call failed: no text, no message
    Missing,           // the first call failed otherwise
};

// Reads member key of node: a buffer of 1024 wide characters first; after
// "buffer too small" with a needed length above 1024, once more with a buffer
// of that length.
StringRead ReadStringInTwoSteps(IJSONManager* mgr, JSONNode* node, const wchar_t* key,
                                std::wstring& out);

// Whether there is a manager to write to; without one the message has been
// delivered.
bool HasWriteManager(IJSONManager* mgr);
// Gives back node; when it is null, after delivering the message that
// element's node is missing.
JSONNode* ElementNodeOrMessage(JSONNode* node, const wchar_t* element);
// Checks the manager and adds the element's own object under parent. Returns
// null after delivering the message when either is missing.
JSONNode* CreateElementNode(IJSONManager* mgr, JSONNode* parent, const wchar_t* element);

class MemberWriter {
public:
    MemberWriter(IJSONManager* mgr, JSONNode* node, const wchar_t* element)
        : mgr_(mgr), node_(node), element_(element) {}

    bool RequiredDWORD(const wchar_t* key, DWORD value);
    bool OptionalDWORD(const wchar_t* key, const VextorJSConfig::OptionalDWORD& member);
    bool RequiredString(const wchar_t* key, const std::wstring& value);
    bool OptionalString(const wchar_t* key, const VextorJSConfig::OptionalString& member);

    template <class Child>
    bool RequiredChild(const wchar_t* childName, Child& child) {
        if (child.WriteToJSONMgr(mgr_, node_, 1) == ZELT_SUCCESS) return true;
        DeliverMessage(Message::Child(Message::ChildFailure::WriteRequired, childName));
        return false;
    }

    // Written only when present; an empty list writes nothing by itself.
    template <class Child>
    bool OptionalChild(const wchar_t* childName, Child& child, DWORD present) {
        if (present == 0 || child.WriteToJSONMgr(mgr_, node_, 1) == ZELT_SUCCESS) return true;
        DeliverMessage(Message::Child(Message::ChildFailure::WriteOptional, childName));
        return false;
    }

private:
    bool WriteDWORD(const wchar_t* key, DWORD value);
    bool WriteString(const wchar_t* key, const std::wstring& value);

    IJSONManager* mgr_;
    JSONNode* node_;
    const wchar_t* element_;
};

class MemberReader {
public:
    MemberReader(IJSONManager* mgr, JSONNode* node, const wchar_t* element)
        : mgr_(mgr), node_(node), element_(element) {}

    bool RequiredDWORD(const wchar_t* key, DWORD& value);
    // Optional members never fail the read: an unreadable one stays absent.
    bool OptionalDWORD(const wchar_t* key, VextorJSConfig::OptionalDWORD& member);
    bool RequiredString(const wchar_t* key, std::wstring& value);
    bool OptionalString(const wchar_t* key, VextorJSConfig::OptionalString& member);

    template <class Child>
    bool RequiredChild(const wchar_t* childName, Child& child) {
        JSONNode* childNode = mgr_->GetElement(node_, childName);
        if (childNode != nullptr && child.ReadFromJSONMgr(mgr_, childNode) == ZELT_SUCCESS)
            return true;
        DeliverMessage(Message::Child(Message::ChildFailure::ReadRequired, childName));
        return false;
    }

    // Absent is fine; present marks the flag before the child reads itself.
    template <class Child>
    bool OptionalChild(const wchar_t* childName, Child& child, DWORD& present) {
        JSONNode* childNode = mgr_->GetElement(node_, childName);
        if (childNode == nullptr) return true;
        present = 1;
        if (child.ReadFromJSONMgr(mgr_, childNode) == ZELT_SUCCESS) return true;
        DeliverMessage(Message::Child(Message::ChildFailure::ReadOptional, childName));
        return false;
    }

private:
    IJSONManager* mgr_;
    JSONNode* node_;
    const wchar_t* element_;
};

// Hands one member to the writer's or reader's step of its kind; the member's
// type tells the kind.
template <class Steps>
bool TakeStep(Steps& steps, const wchar_t* key, DWORD& member) {
    return steps.RequiredDWORD(key, member);
}
template <class Steps>
bool TakeStep(Steps& steps, const wchar_t* key, VextorJSConfig::OptionalDWORD& member) {
    return steps.OptionalDWORD(key, member);
}
template <class Steps>
bool TakeStep(Steps& steps, const wchar_t* key, std::wstring& member) {
    return steps.RequiredString(key, member);
}
template <class Steps>
bool TakeStep(Steps& steps, const wchar_t* key, VextorJSConfig::OptionalString& member) {
    return steps.OptionalString(key, member);
}
template <class Steps, class Child>
bool TakeStep(Steps& steps, const wchar_t* key, VextorJSConfig::OptionalChild<Child>& member) {
    return steps.OptionalChild(key, member.element, member.present);
}
template <class Steps, class Child>
bool TakeStep(Steps& steps, const wchar_t* key, Child& child) {
    return steps.RequiredChild(key, child);
}

// Ends a read: a failed one leaves the element cleared, never half-filled.
template <class Element>
int FinishRead(Element& element, bool complete) {
    if (complete) return ZELT_SUCCESS;
    element.Clear();
    return ZELT_FAILED;
}

}  // namespace VextorJSConfig

#endif  // ZELT_CONFIG_MEMBERIO_H
