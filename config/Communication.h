// Communication.h: the implementation of ICommunication.
#ifndef ZELT_CONFIG_COMMUNICATION_H
#define ZELT_CONFIG_COMMUNICATION_H

#include "config/ElementBase.h"

#include <zelt/Communication.h>
#include <zelt/JSONManager.h>
#include <zelt/Types.h>

#include <string>

namespace VextorJSConfig {

class CCommunication final : public ElementBase<CCommunication, ICommunication> {
public:
    int GetAutoUpgradeQueryInterval(DWORD* out) const override {
        return GetOptional(autoUpgradeQueryInterval_, out);
    }
    void SetAutoUpgradeQueryInterval(const DWORD* value) override {
        SetOptional(autoUpgradeQueryInterval_, value);
    }
    const std::wstring* GetDispServerHostname() const override { return &dispServerHostname_; }
    int SetDispServerHostname(const std::wstring* value) override {
        return SetRequired<&CCommunication::dispServerHostname_>(value);
    }
    int GetLogServerHostname(std::wstring* out) const override {
        return GetOptional(logServerHostname_, out);
    }
    void SetLogServerHostname(const std::wstring* value) override {
        SetOptional(logServerHostname_, value);
    }
    int GetEventLogUploadURL(std::wstring* out) const override {
        return GetOptional(eventLogUploadURL_, out);
    }
    void SetEventLogUploadURL(const std::wstring* value) override {
        SetOptional(eventLogUploadURL_, value);
    }
    int GetAutoupgradeURI(std::wstring* out) const override {
        return GetOptional(autoupgradeURI_, out);
    }
    void SetAutoupgradeURI(const std::wstring* value) override {
        SetOptional(autoupgradeURI_, value);
    }
    DWORD GetLogUploadInterval() const override { return logUploadInterval_; }
    int SetLogUploadInterval(const DWORD* value) override {
        return SetRequired<&CCommunication::logUploadInterval_>(value);
    }
    DWORD GetManagementQueryInterval() const override { return managementQueryInterval_; }
    int SetManagementQueryInterval(const DWORD* value) override {
        return SetRequired<&CCommunication::managementQueryInterval_>(value);
    }
    int GetEnablePII(DWORD* out) const override { return GetOptional(enablePII_, out); }
    void SetEnablePII(const DWORD* value) override { SetOptional(enablePII_, value); }

    // The element's own key (ElementBase.h).
    static constexpr const wchar_t* kName = L"Communication";
    // The members in write order, which is also the read order.
    // "AutoUpgradeQueryInterval" and "AutoupgradeURI" differ in case on
    // purpose: the document format spells them so.
    static constexpr auto Members() {
        return std::make_tuple(
            KeyedMember(L"AutoUpgradeQueryInterval", &CCommunication::autoUpgradeQueryInterval_),
            KeyedMember(L"DispServerHostname", &CCommunication::dispServerHostname_),
            KeyedMember(L"LogServerHostname", &CCommunication::logServerHostname_),
            KeyedMember(L"EventLogUploadURL", &CCommunication::eventLogUploadURL_),
            KeyedMember(L"AutoupgradeURI", &CCommunication::autoupgradeURI_),
            KeyedMember(L"LogUploadInterval", &CCommunication::logUploadInterval_),
            KeyedMember(L"ManagementQueryInterval", &CCommunication::managementQueryInterval_),
            KeyedMember(L"EnablePII", &CCommunication::enablePII_));
    }
    ~CCommunication() override;

private:
    OptionalDWORD autoUpgradeQueryInterval_;
    std::wstring dispServerHostname_;
    OptionalString logServerHostname_;
    OptionalString eventLogUploadURL_;
    OptionalString autoupgradeURI_;
    DWORD logUploadInterval_ = 0;
    DWORD managementQueryInterval_ = 0;
    OptionalDWORD enablePII_;
};

extern template class ElementBase<CCommunication, ICommunication>;

}  // namespace VextorJSConfig

#endif  // ZELT_CONFIG_COMMUNICATION_H
