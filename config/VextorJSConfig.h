// VextorJSConfig.h: CVextorJSConfig, the implementation of IVextorJSConfig.
#ifndef ZELT_CONFIG_VEXTORJSCONFIG_H
#define ZELT_CONFIG_VEXTORJSCONFIG_H

#include "config/AdvancedRule.h"
#include "config/ClientSetting.h"
#include "config/ContentUploadChannel.h"
#include "config/ElementBase.h"

#include <zelt/VextorJSConfig.h>

#include <string>

namespace VextorJSConfig {

class CVextorJSConfig final : public ElementBase<CVextorJSConfig, IVextorJSConfig> {
public:
    // Unlike the other elements, the root starts a new document in mgr and
    // writes into its top-level object (parent is not used), and reads from
    // the top-level object that the caller passes.
    static JSONNode* CreateNode(IJSONManager* mgr, JSONNode* parent);

    IClientSetting* GetClientSetting() override { return &clientSetting_; }
    int SetClientSetting(const IClientSetting* value) override {
        return SetRequired<&CVextorJSConfig::clientSetting_>(value);
    }
    IAdvancedRule* GetAdvancedRule() override { return &advancedRule_; }
    int SetAdvancedRule(const IAdvancedRule* value) override {
        return SetRequired<&CVextorJSConfig::advancedRule_>(value);
    }
    IContentUploadChannel* GetContentUploadChannel() override { return &contentUploadChannel_; }
    int SetContentUploadChannel(const IContentUploadChannel* value) override {
        return SetRequired<&CVextorJSConfig::contentUploadChannel_>(value);
    }
    const std::wstring* GetProfileName() const override { return &profileName_; }
    int SetProfileName(const std::wstring* value) override {
        return SetRequired<&CVextorJSConfig::profileName_>(value);
    }
    const std::wstring* GetSchemaVersion() const override { return &schemaVersion_; }
    int SetSchemaVersion(const std::wstring* value) override {
        return SetRequired<&CVextorJSConfig::schemaVersion_>(value);
    }
    const std::wstring* GetAdminPassword() const override { return &adminPassword_; }
    int SetAdminPassword(const std::wstring* value) override {
        return SetRequired<&CVextorJSConfig::adminPassword_>(value);
    }
    int GetEnableTrayiconMenu(DWORD* out) const override {
        return GetOptional(enableTrayiconMenu_, out);
    }
    void SetEnableTrayiconMenu(const DWORD* value) override {
        SetOptional(enableTrayiconMenu_, value);
    }
    int ReservedSlot20(DWORD* out) const override;
    void ReservedSlot21(const DWORD* value) override;

    // The element's own key (ElementBase.h).
    static constexpr const wchar_t* kName = L"VextorJSConfig";
    // The members in write order, which is also the read order: the children first.
    static constexpr auto Members() {
        return std::make_tuple(
            KeyedMember(CClientSetting::kName, &CVextorJSConfig::clientSetting_),
            KeyedMember(CAdvancedRule::kName, &CVextorJSConfig::advancedRule_),
            KeyedMember(CContentUploadChannel::kName, &CVextorJSConfig::contentUploadChannel_),
            KeyedMember(L"ProfileName", &CVextorJSConfig::profileName_),
            KeyedMember(L"SchemaVersion", &CVextorJSConfig::schemaVersion_),
            KeyedMember(L"AdminPassword", &CVextorJSConfig::adminPassword_),
            KeyedMember(L"EnableTrayiconMenu", &CVextorJSConfig::enableTrayiconMenu_));
    }
    ~CVextorJSConfig() override;

private:
    CClientSetting clientSetting_;
    CAdvancedRule advancedRule_;
    CContentUploadChannel contentUploadChannel_;
    std::wstring profileName_;
    std::wstring schemaVersion_;
    std::wstring adminPassword_;
    OptionalDWORD enableTrayiconMenu_;
};

extern template class ElementBase<CVextorJSConfig, IVextorJSConfig>;

}  // namespace VextorJSConfig

#endif  // ZELT_CONFIG_VEXTORJSCONFIG_H
