#include "config/ContentUploadChannel.h"

#include "config/MemberIO.h"

namespace VextorJSConfig {

namespace {
constexpr const wchar_t* kElementName = L"ContentUploadChannel";
constexpr const wchar_t* kHeadersName = L"ClientRequestHeaders";
}  // namespace

// The members in write order, which is also the read order: the writer and
// the reader take the same steps.
template <class Steps>
bool CContentUploadChannel::VisitMembers(Steps& steps) {
    return steps.OptionalChild(kHeadersName, clientRequestHeaders_, clientRequestHeadersPresent_) &&
           steps.RequiredDWORD(L"MaxFileSizeForScan", maxFileSizeForScan_) &&
           steps.OptionalString(L"FileTypesToBlock", fileTypesToBlock_) &&
           steps.OptionalString(L"FileTypesToScan", fileTypesToScan_);
}

CContentUploadChannel::~CContentUploadChannel() { CContentUploadChannel::Clear(); }

int CContentUploadChannel::WriteToJSONMgr(IJSONManager* mgr, JSONNode* parent, int /*flag*/) {
    JSONNode* node = CreateElementNode(mgr, parent, kElementName);
    if (node == nullptr) return ZELT_FAILED;
    MemberWriter write(mgr, node, kElementName);
    return VisitMembers(write) ? ZELT_SUCCESS : ZELT_FAILED;
}

int CContentUploadChannel::ReadFromJSONMgr(IJSONManager* mgr, JSONNode* node) {
    if (mgr == nullptr) return ReportFailure(Message::ReadNoManager());
    Clear();
    MemberReader read(mgr, node, kElementName);
    return FinishRead(*this, VisitMembers(read));
}

void CContentUploadChannel::Clear() {
    ElementType = ELEMENT_TYPE_ORDINARY;
    clientRequestHeaders_.Clear();
    clientRequestHeadersPresent_ = 0;
    maxFileSizeForScan_ = 0;
    fileTypesToBlock_.Clear();
    fileTypesToScan_.Clear();
}

IContentUploadChannel& CContentUploadChannel::CopyFrom(const IContentUploadChannel& other) {
    if (&other == this) return *this;
    const auto& source = static_cast<const CContentUploadChannel&>(other);
    Clear();
    // The list is copied whatever its flag says, hidden entries included.
    clientRequestHeaders_.CopyFrom(source.clientRequestHeaders_);
    clientRequestHeadersPresent_ = source.clientRequestHeadersPresent_;
    maxFileSizeForScan_ = source.maxFileSizeForScan_;
    fileTypesToBlock_ = source.fileTypesToBlock_;
    fileTypesToScan_ = source.fileTypesToScan_;
    return *this;
}

int CContentUploadChannel::GetClientRequestHeaders(IClientRequestHeaders** out) {
    return GetOptionalChild(clientRequestHeaders_, clientRequestHeadersPresent_, out);
}

void CContentUploadChannel::SetClientRequestHeaders(const IClientRequestHeaders* value) {
    SetOptionalChild(clientRequestHeaders_, clientRequestHeadersPresent_, value);
}

int CContentUploadChannel::SetMaxFileSizeForScan(const DWORD* value) {
    return SetRequiredDWORD(maxFileSizeForScan_, value, kElementName, L"MaxFileSizeForScan");
}

int CContentUploadChannel::GetFileTypesToBlock(std::wstring* out) const {
    return GetOptionalString(fileTypesToBlock_, out);
}

void CContentUploadChannel::SetFileTypesToBlock(const std::wstring* value) {
    SetOptionalString(fileTypesToBlock_, value);
}

int CContentUploadChannel::GetFileTypesToScan(std::wstring* out) const {
    return GetOptionalString(fileTypesToScan_, out);
}

void CContentUploadChannel::SetFileTypesToScan(const std::wstring* value) {
    SetOptionalString(fileTypesToScan_, value);
}

IContentUploadChannel* ContentUploadChannel_CreateNewInstance() {
    return NewClearedElement<IContentUploadChannel, CContentUploadChannel>();
}

}  // namespace VextorJSConfig
