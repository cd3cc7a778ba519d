// ElementBase.h: the one implementation of WriteToJSONMgr, ReadFromJSONMgr,
// Clear and CopyFrom behind the configuration elements.
//
// An element derives from ElementBase<Element, Interface> and gives it:
// - kName, the element's own key (and the name in its failure messages);
// - Members(), a constexpr tuple of KeyedMember(key, &Element::member), one
//   for each member in write order, which is also the read order; it is the
//   only place that names the member's key. The member's type tells its kind
//   (ElementMembers.h): DWORD and std::wstring are required, OptionalDWORD,
//   OptionalString and OptionalChild optional, and any other type is a
//   required child element;
// - optionally CreateNode(mgr, parent), when its own node is not an object
//   added under parent (the root's is the top-level object of a new document,
//   a list entry writes into the list's array itself);
// - optionally kElementType, when it is not an ordinary element.
//
// The element's destructor resets it as Clear does before its members die,
// which this base cannot do for it: by then they are gone. Copying an element
// is CopyFrom's job alone.
//
// Each element's file instantiates its base explicitly, and defines its
// destructor, so that the machinery and the virtual table are made once, in
// that file; its header declares the instantiation extern.
#ifndef ZELT_CONFIG_ELEMENTBASE_H
#define ZELT_CONFIG_ELEMENTBASE_H

#include "config/ElementMembers.h"
#include "config/ElementMessages.h"
#include "config/MemberIO.h"

#include <zelt/Element.h>
#include <zelt/JSONManager.h>
#include <zelt/Types.h>

#include <string>
#include <tuple>
#include <type_traits>

namespace VextorJSConfig {

// One member of Element as the machinery sees it: its key and its place.
template <class Element, class Member>
struct MemberWithKey {
    const wchar_t* key;
    Member Element::*member;
};

template <class Element, class Member>
constexpr MemberWithKey<Element, Member> KeyedMember(const wchar_t* key, Member Element::*member) {
    return {key, member};
}

// Whether two member pointers, of any types, are the same member.
template <class Member, class Other>
constexpr bool IsSameMember(Member member, Other other) {
    if constexpr (std::is_same_v<Member, Other>)
        return member == other;
    else
        return false;
}

template <class Element, class Interface>
class ElementBase : public Interface {
public:
    ElementBase() = default;
    ElementBase(const ElementBase&) = delete;
    ElementBase& operator=(const ElementBase&) = delete;

    // The flag is not used (a list passes each entry its position).
    int WriteToJSONMgr(IJSONManager* mgr, JSONNode* parent, int flag) override;
    int ReadFromJSONMgr(IJSONManager* mgr, JSONNode* node) override;
    void Clear() override;
    // The source is taken to be the same element class; children are copied
    // deeply, whatever their presence flags say.
    Interface& CopyFrom(const Interface& other) override;

    // The element's own node: an object added under parent.
    static JSONNode* CreateNode(IJSONManager* mgr, JSONNode* parent);
    // What Clear sets ElementType to.
    static constexpr DWORD kElementType = ELEMENT_TYPE_ORDINARY;

protected:
    // The setter of a required member: null is refused with the message that
    // names the member's key; otherwise the member takes *value (a child
    // copies it deeply).
    template <auto member, class Value>
    int SetRequired(const Value* value);

private:
    Element& Self() { return static_cast<Element&>(*this); }

    // The key that Members() gives member, looked up while compiling.
    template <auto member>
    static constexpr const wchar_t* KeyOf();

    // Runs the writer's or the reader's steps over the members, in order,
    // up to the first that fails.
    template <class Steps>
    bool TakeSteps(Steps& steps);
    // Calls visit(memberWithKey) for every member, in order.
    template <class Visit>
    static void ForEachMember(Visit visit);
};

template <class Element, class Interface>
int ElementBase<Element, Interface>::WriteToJSONMgr(IJSONManager* mgr, JSONNode* parent,
                                                    int /*flag*/) {
    JSONNode* node = Element::CreateNode(mgr, parent);
    if (node == nullptr) return ZELT_FAILED;
    MemberWriter write(mgr, node, Element::kName);
    return TakeSteps(write) ? ZELT_SUCCESS : ZELT_FAILED;
}

template <class Element, class Interface>
int ElementBase<Element, Interface>::ReadFromJSONMgr(IJSONManager* mgr, JSONNode* node) {
    if (mgr == nullptr) return ReportFailure(Message::ReadNoManager());
    ElementBase::Clear();
    MemberReader read(mgr, node, Element::kName);
    return FinishRead(Self(), TakeSteps(read));
}

template <class Element, class Interface>
void ElementBase<Element, Interface>::Clear() {
    this->ElementType = Element::kElementType;
    ForEachMember([this](const auto& entry) { ResetMember(Self().*entry.member); });
}

template <class Element, class Interface>
Interface& ElementBase<Element, Interface>::CopyFrom(const Interface& other) {
    if (&other == this) return *this;
    ElementBase::Clear();
    const auto& source = static_cast<const Element&>(other);
    ForEachMember([this, &source](const auto& entry) {
        CopyMember(Self().*entry.member, source.*entry.member);
    });
    return *this;
}

template <class Element, class Interface>
JSONNode* ElementBase<Element, Interface>::CreateNode(IJSONManager* mgr, JSONNode* parent) {
    return CreateElementNode(mgr, parent, Element::kName);
}

template <class Element, class Interface>
template <auto member, class Value>
int ElementBase<Element, Interface>::SetRequired(const Value* value) {
    constexpr const wchar_t* key = KeyOf<member>();
    static_assert(key != nullptr, "the member is not in Members()");
    auto& target = Self().*member;
    if constexpr (std::is_same_v<std::decay_t<decltype(target)>, DWORD>)
        return SetRequiredDWORD(target, value, Element::kName, key);
    else if constexpr (std::is_same_v<std::decay_t<decltype(target)>, std::wstring>)
        return SetRequiredString(target, value, Element::kName, key);
    else
        return SetRequiredChild(target, value, key);
}

template <class Element, class Interface>
template <auto member>
constexpr const wchar_t* ElementBase<Element, Interface>::KeyOf() {
    const wchar_t* key = nullptr;
    std::apply(
        [&key](const auto&... entry) {
            ((key = IsSameMember(entry.member, member) ? entry.key : key), ...);
        },
        Element::Members());
    return key;
}

template <class Element, class Interface>
template <class Steps>
bool ElementBase<Element, Interface>::TakeSteps(Steps& steps) {
    return std::apply(
        [this, &steps](const auto&... entry) {
            return (TakeStep(steps, entry.key, Self().*entry.member) && ...);
        },
        Element::Members());
}

template <class Element, class Interface>
template <class Visit>
void ElementBase<Element, Interface>::ForEachMember(Visit visit) {
    std::apply([&visit](const auto&... entry) { (visit(entry), ...); }, Element::Members());
}

}  // namespace VextorJSConfig

#endif  // ZELT_CONFIG_ELEMENTBASE_H
