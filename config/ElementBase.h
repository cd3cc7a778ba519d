// ElementBase.h: the one implementation of WriteToJSONMgr, ReadFromJSONMgr,
// Clear and CopyFrom behind the configuration elements.
//
// An element derives from ElementBase<Element, Interface> and gives it:
// - kName, the element's own key (and the name in its failure messages);
// - Members(), a tuple of KeyedMember(key, &Element::member), one for each
//   member in write order, which is also the read order. The member's type
//   tells its kind (ElementMembers.h): DWORD and std::wstring are required,
//   OptionalDWORD, OptionalString and OptionalChild optional, and any other
//   type is a required child element;
// - optionally CreateNode(mgr, parent), when its own node is not an object
//   added under parent (the root's is the top-level object of a new document).
//
// The element's destructor resets it as Clear does before its members die,
// which this base cannot do for it: by then they are gone. Copying an element
// is CopyFrom's job alone.
//
// Each element's file instantiates its base explicitly after its Members();
// its header declares that instantiation extern.
#ifndef ZELT_CONFIG_ELEMENTBASE_H
#define ZELT_CONFIG_ELEMENTBASE_H

#include "config/ElementMembers.h"
#include "config/ElementMessages.h"
#include "config/MemberIO.h"

#include <zelt/Element.h>
#include <zelt/JSONManager.h>
#include <zelt/Types.h>

#include <tuple>

namespace VextorJSConfig {

// One member of Element as the machinery sees it: its key and its place.
template <class Element, class Member>
struct MemberWithKey {
    const wchar_t* key;
    Member Element::*member;
};

template <class Element, class Member>
MemberWithKey<Element, Member> KeyedMember(const wchar_t* key, Member Element::*member) {
    return {key, member};
}

template <class Element, class Interface>
class ElementBase : public Interface {
public:
    ElementBase() = default;
    ElementBase(const ElementBase&) = delete;
    ElementBase& operator=(const ElementBase&) = delete;

    // The flag is not used; the list entries take theirs (StringLists.h).
    int WriteToJSONMgr(IJSONManager* mgr, JSONNode* parent, int flag) override;
    int ReadFromJSONMgr(IJSONManager* mgr, JSONNode* node) override;
    void Clear() override;
    // The source is taken to be the same element class; children are copied
    // deeply, whatever their presence flags say.
    Interface& CopyFrom(const Interface& other) override;

    // The element's own node: an object added under parent.
    static JSONNode* CreateNode(IJSONManager* mgr, JSONNode* parent);

private:
    Element& Self() { return static_cast<Element&>(*this); }

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
    this->ElementType = ELEMENT_TYPE_ORDINARY;
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
