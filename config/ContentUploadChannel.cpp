#include "config/ContentUploadChannel.h"

#include "config/MemberIO.h"

namespace VextorJSConfig {

namespace {
constexpr const wchar_t* kElementName = L"ContentUploadChannel";
constexpr const wchar_t* kHeadersName = L"ClientRequestHeaders";
}  // namespace

CContentUploadChannel::~CContentUploadChannel() { CContentUploadChannel::Clear(); }

int CContentUploadChannel::WriteToJSONMgr(IJSONManager* mgr, JSONNode* parent, int /*flag*/) {
    JSONNode* node = CreateElementNode(mgr, parent, kElementName);
    if (node == nullptr) return ZELT_FAILED;
    MemberWriter write(mgr, node, kElementName);
    const bool complete =
        write.OptionalChild(kHeadersName, clientRequestHeaders_, clientRequestHeadersPresent_) &&
        write.RequiredDWORD(L"MaxFileSizeForScan", maxFileSizeForScan_) &&
        write.OptionalString(L"FileTypesToBlock", fileTypesToBlock_) &&
        write.OptionalString(L"FileTypesToScan", fileTypesToScan_);
    return complete ? ZELT_SUCCESS : ZELT_FAILED;
}

int CContentUploadChannel::ReadFromJSONMgr(IJSONManager* mgr, JSONNode* node) {
    if (mgr == nullptr) return ReportFailure(Message::ReadNoManager());
    Clear();
    MemberReader read(mgr, node, kElementName);
    const bool complete =
        read.OptionalChild(kHeadersName, clientRequestHeaders_, clientRequestHeadersPresent_) &&
        read.RequiredDWORD(L"MaxFileSizeForScan", maxFileSizeForScan_) &&
        read.OptionalString(L"FileTypesToBlock", fileTypesToBlock_) &&
        read.OptionalString(L"FileTypesToScan", fileTypesToScan_);
    return FinishRead(*this, complete);
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
    IContentUploadChannel* element = new CContentUploadChannel();
    element->Clear();
    return element;
}

}  // namespace VextorJSConfig
