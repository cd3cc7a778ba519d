#include "config/EnforceList.h"

#include "config/ElementMessages.h"
#include "config/MemberIO.h"

namespace VextorJSConfig {

namespace {
constexpr const wchar_t* kElementName = L"EnforceList";
constexpr const wchar_t* kIPList = L"IPList";
constexpr const wchar_t* kProcessNames = L"ProcessNames";
constexpr const wchar_t* kDomainLists = L"DomainLists";
}  // namespace

// The members in write order, which is also the read order: the writer and
// the reader take the same steps.
template <class Steps>
bool CEnforceList::VisitMembers(Steps& steps) {
    return steps.OptionalChild(kIPList, ipList_, ipListPresent_) &&
           steps.OptionalString(kProcessNames, processNames_) &&
           steps.OptionalString(kDomainLists, domainLists_);
}

CEnforceList::~CEnforceList() { CEnforceList::Clear(); }

int CEnforceList::WriteToJSONMgr(IJSONManager* mgr, JSONNode* parent, int /*flag*/) {
    JSONNode* node = CreateElementNode(mgr, parent, kElementName);
    if (node == nullptr) return ZELT_FAILED;
    MemberWriter write(mgr, node, kElementName);
    return VisitMembers(write) ? ZELT_SUCCESS : ZELT_FAILED;
}

int CEnforceList::ReadFromJSONMgr(IJSONManager* mgr, JSONNode* node) {
    if (mgr == nullptr) return ReportFailure(Message::ReadNoManager());
    Clear();
    // Only the list can fail the read; an unreadable string stays absent.
    MemberReader read(mgr, node, kElementName);
    return FinishRead(*this, VisitMembers(read));
}

void CEnforceList::Clear() {
    ElementType = ELEMENT_TYPE_ORDINARY;
    ipListPresent_ = 0;
    ipList_.Clear();
    processNames_.Clear();
    domainLists_.Clear();
}

IEnforceList& CEnforceList::CopyFrom(const IEnforceList& other) {
    if (&other == this) return *this;
    Clear();
    // The list is copied whatever its flag, so hidden entries come along.
    const auto& source = static_cast<const CEnforceList&>(other);
    ipList_.CopyFrom(source.ipList_);
    ipListPresent_ = source.ipListPresent_;
    processNames_ = source.processNames_;
    domainLists_ = source.domainLists_;
    return *this;
}

int CEnforceList::GetIPList(IIPList** out) {
    return GetOptionalChild(ipList_, ipListPresent_, out);
}
void CEnforceList::SetIPList(const IIPList* value) {
    SetOptionalChild(ipList_, ipListPresent_, value);
}

int CEnforceList::GetProcessNames(std::wstring* out) const {
    return GetOptionalString(processNames_, out);
}
void CEnforceList::SetProcessNames(const std::wstring* value) {
    SetOptionalString(processNames_, value);
}

int CEnforceList::GetDomainLists(std::wstring* out) const {
    return GetOptionalString(domainLists_, out);
}
void CEnforceList::SetDomainLists(const std::wstring* value) {
    SetOptionalString(domainLists_, value);
}

IEnforceList* EnforceList_CreateNewInstance() {
    return NewClearedElement<IEnforceList, CEnforceList>();
}

}  // namespace VextorJSConfig
