// EnforceList.h: the implementation of IEnforceList.
#ifndef ZELT_CONFIG_ENFORCELIST_H
#define ZELT_CONFIG_ENFORCELIST_H

#include "config/ElementMembers.h"
#include "config/StringLists.h"

#include <zelt/EnforceList.h>
#include <zelt/JSONManager.h>
#include <zelt/Types.h>

#include <string>

namespace VextorJSConfig {

class CEnforceList final : public IEnforceList {
public:
    CEnforceList() = default;
    ~CEnforceList() override;

    int WriteToJSONMgr(IJSONManager* mgr, JSONNode* parent, int flag) override;
    int ReadFromJSONMgr(IJSONManager* mgr, JSONNode* node) override;
    void Clear() override;
    IEnforceList& CopyFrom(const IEnforceList& other) override;

    int GetIPList(IIPList** out) override;
    void SetIPList(const IIPList* value) override;
    int GetProcessNames(std::wstring* out) const override;
    void SetProcessNames(const std::wstring* value) override;
    int GetDomainLists(std::wstring* out) const override;
    void SetDomainLists(const std::wstring* value) override;

private:
    template <class Steps>
    bool VisitMembers(Steps& steps);

    // In the order of writing and reading. A list whose flag is 0 may still
    // hold entries: only Clear, CopyFrom and SetIPList replace them.
    CIPList ipList_;
    DWORD ipListPresent_ = 0;
    OptionalString processNames_;
    OptionalString domainLists_;
};

}  // namespace VextorJSConfig

#endif  // ZELT_CONFIG_ENFORCELIST_H
