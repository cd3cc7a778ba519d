/// \file
/// ContentUploadChannel.h: the channel through which the agent uploads content
/// for scanning, the required object "ContentUploadChannel" of the document.
///
/// An optional list of extra request headers ("ClientRequestHeaders"), the
/// largest file size to scan ("MaxFileSizeForScan", always present) and two
/// optional texts naming the file types to block and to scan. The values are
/// stored and transferred, never interpreted.
#ifndef ZELT_CONTENTUPLOADCHANNEL_H
#define ZELT_CONTENTUPLOADCHANNEL_H

#include <zelt/Element.h>
#include <zelt/Export.h>
#include <zelt/StringLists.h>
#include <zelt/Types.h>

#include <string>

namespace VextorJSConfig {

/// The content upload channel "ContentUploadChannel".
/// Slots 0 to 5 come from ElementInterface; the order below continues them
/// (slot 6 onward) and is part of the binary contract.
class IContentUploadChannel : public ElementInterface<IContentUploadChannel> {
public:
    ///@{
    /// Hands out the embedded list itself (1), or 2 while it is absent. The
    /// setter copies *value and marks the list present; null only marks it
    /// absent and keeps its entries, which a later write leaves out.
    virtual int GetClientRequestHeaders(IClientRequestHeaders** out) = 0;
    virtual void SetClientRequestHeaders(const IClientRequestHeaders* value) = 0;
    ///@}

    ///@{
    /// Required: the setter refuses null with a message and -101.
    virtual DWORD GetMaxFileSizeForScan() const = 0;
    virtual int SetMaxFileSizeForScan(const DWORD* value) = 0;
    ///@}

    ///@{
    /// Optional texts: 2 and *out untouched while absent; null removes.
    virtual int GetFileTypesToBlock(std::wstring* out) const = 0;
    virtual void SetFileTypesToBlock(const std::wstring* value) = 0;
    virtual int GetFileTypesToScan(std::wstring* out) const = 0;
    virtual void SetFileTypesToScan(const std::wstring* value) = 0;
    ///@}
};

/// A new, cleared element; the caller deletes it through the interface.
ZELT_API IContentUploadChannel* ContentUploadChannel_CreateNewInstance();

}  // namespace VextorJSConfig

#endif  // ZELT_CONTENTUPLOADCHANNEL_H
