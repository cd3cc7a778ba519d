// VextorJSConfig.h: CVextorJSConfig, the implementation of IVextorJSConfig.
#ifndef ZELT_CONFIG_VEXTORJSCONFIG_H
#define ZELT_CONFIG_VEXTORJSCONFIG_H

#include "config/AdvancedRule.h"
#include "config/ClientSetting.h"
#include "config/ContentUploadChannel.h"
#include "config/ElementMembers.h"

#include <zelt/VextorJSConfig.h>

#include <string>

namespace VextorJSConfig {

class CVextorJSConfig final : public IVextorJSConfig {
public:
    CVextorJSConfig() = default;
    ~CVextorJSConfig() override;
    CVextorJSConfig(const CVextorJSConfig&) = delete;
    CVextorJSConfig& operator=(const CVextorJSConfig&) = delete;

    // Unlike the other elements, the root starts a new document in mgr and
    // writes into its top-level object (parent and flag are not used), and
    // reads from the top-level object that the caller passes.
    int WriteToJSONMgr(IJSONManager* mgr, JSONNode* parent, int flag) override;
    int ReadFromJSONMgr(IJSONManager* mgr, JSONNode* node) override;
    void Clear() override;
    IVextorJSConfig& CopyFrom(const IVextorJSConfig& other) override;

    IClientSetting* GetClientSetting() override { return &clientSetting_; }
    int SetClientSetting(const IClientSetting* value) override;
    IAdvancedRule* GetAdvancedRule() override { return &advancedRule_; }
    int SetAdvancedRule(const IAdvancedRule* value) override;
    IContentUploadChannel* GetContentUploadChannel() override { return &contentUploadChannel_; }
    int SetContentUploadChannel(const IContentUploadChannel* value) override;
    const std::wstring* GetProfileName() const override { return &profileName_; }
    int SetProfileName(const std::wstring* value) override;
    const std::wstring* GetSchemaVersion() const override { return &schemaVersion_; }
    int SetSchemaVersion(const std::wstring* value) override;
    const std::wstring* GetAdminPassword() const override { return &adminPassword_; }
    int SetAdminPassword(const std::wstring* value) override;
    int GetEnableTrayiconMenu(DWORD* out) const override;
    void SetEnableTrayiconMenu(const DWORD* value) override;
    int ReservedSlot20(DWORD* out) const override;
    void ReservedSlot21(const DWORD* value) override;

private:
    template <class Steps>
    bool VisitMembers(Steps& steps);

    // In write order: the children first.
    CClientSetting clientSetting_;
    CAdvancedRule advancedRule_;
    CContentUploadChannel contentUploadChannel_;
    std::wstring profileName_;
    std::wstring schemaVersion_;
    std::wstring adminPassword_;
    OptionalDWORD enableTrayiconMenu_;
};

}  // namespace VextorJSConfig

#endif  // ZELT_CONFIG_VEXTORJSCONFIG_H
