#include "config/WhiteList.h"

#include "config/ElementMessages.h"
#include "config/MemberIO.h"

namespace VextorJSConfig {

namespace {
constexpr const wchar_t* kElementName = L"WhiteList";
constexpr const wchar_t* kIPList = L"IPList";
constexpr const wchar_t* kVPNDescList = L"VPNDescList";
constexpr const wchar_t* kDomainLists = L"DomainLists";
constexpr const wchar_t* kProcessNames = L"ProcessNames";
}  // namespace

// The members in write order, which is also the read order: the writer and
// the reader take the same steps.
template <class Steps>
bool CWhiteList::VisitMembers(Steps& steps) {
    return steps.OptionalChild(kIPList, ipList_, ipListPresent_) &&
           steps.OptionalChild(kVPNDescList, vpnDescList_, vpnDescListPresent_) &&
           steps.OptionalString(kDomainLists, domainLists_) &&
           steps.OptionalString(kProcessNames, processNames_);
}

CWhiteList::~CWhiteList() { CWhiteList::Clear(); }

int CWhiteList::WriteToJSONMgr(IJSONManager* mgr, JSONNode* parent, int /*flag*/) {
    JSONNode* node = CreateElementNode(mgr, parent, kElementName);
    if (node == nullptr) return ZELT_FAILED;
    MemberWriter write(mgr, node, kElementName);
    return VisitMembers(write) ? ZELT_SUCCESS : ZELT_FAILED;
}

int CWhiteList::ReadFromJSONMgr(IJSONManager* mgr, JSONNode* node) {
    if (mgr == nullptr) return ReportFailure(Message::ReadNoManager());
    Clear();
    // Only the lists can fail the read; an unreadable string stays absent.
    MemberReader read(mgr, node, kElementName);
    return FinishRead(*this, VisitMembers(read));
}

void CWhiteList::Clear() {
    ElementType = ELEMENT_TYPE_ORDINARY;
    ipListPresent_ = 0;
    ipList_.Clear();
    vpnDescListPresent_ = 0;
    vpnDescList_.Clear();
    domainLists_.Clear();
    processNames_.Clear();
}

IWhiteList& CWhiteList::CopyFrom(const IWhiteList& other) {
    if (&other == this) return *this;
    Clear();
    // The lists are copied whatever their flags, so hidden entries come along.
    const auto& source = static_cast<const CWhiteList&>(other);
    ipList_.CopyFrom(source.ipList_);
    ipListPresent_ = source.ipListPresent_;
    vpnDescList_.CopyFrom(source.vpnDescList_);
    vpnDescListPresent_ = source.vpnDescListPresent_;
    domainLists_ = source.domainLists_;
    processNames_ = source.processNames_;
    return *this;
}

int CWhiteList::GetIPList(IIPList** out) { return GetOptionalChild(ipList_, ipListPresent_, out); }
void CWhiteList::SetIPList(const IIPList* value) {
    SetOptionalChild(ipList_, ipListPresent_, value);
}

int CWhiteList::GetVPNDescList(IVPNDescList** out) {
    return GetOptionalChild(vpnDescList_, vpnDescListPresent_, out);
}
void CWhiteList::SetVPNDescList(const IVPNDescList* value) {
    SetOptionalChild(vpnDescList_, vpnDescListPresent_, value);
}

int CWhiteList::GetDomainLists(std::wstring* out) const {
    return GetOptionalString(domainLists_, out);
}
void CWhiteList::SetDomainLists(const std::wstring* value) {
    SetOptionalString(domainLists_, value);
}

int CWhiteList::GetProcessNames(std::wstring* out) const {
    return GetOptionalString(processNames_, out);
}
void CWhiteList::SetProcessNames(const std::wstring* value) {
    SetOptionalString(processNames_, value);
}

IWhiteList* WhiteList_CreateNewInstance() { return NewClearedElement<IWhiteList, CWhiteList>(); }

}  // namespace VextorJSConfig
