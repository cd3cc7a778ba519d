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
    int GetAutoUpgradeQueryInterval(DWORD* out) const override;
    void SetAutoUpgradeQueryInterval(const DWORD* value) override;
    const std::wstring* GetDispServerHostname() const override;
    int SetDispServerHostname(const std::wstring* value) override;
    int GetLogServerHostname(std::wstring* out) const override;
    void SetLogServerHostname(const std::wstring* value) override;
    int GetEventLogUploadURL(std::wstring* out) const override;
    void SetEventLogUploadURL(const std::wstring* value) override;
    int GetAutoupgradeURI(std::wstring* out) const override;
    void SetAutoupgradeURI(const std::wstring* value) override;
    DWORD GetLogUploadInterval() const override;
    int SetLogUploadInterval(const DWORD* value) override;
    DWORD GetManagementQueryInterval() const override;
    int SetManagementQueryInterval(const DWORD* value) override;
    int GetEnablePII(DWORD* out) const override;
    void SetEnablePII(const DWORD* value) override;

    // The element's own key and its members (ElementBase.h).
    static constexpr const wchar_t* kName = L"Communication";
    static constexpr auto Members();
    ~CCommunication() override { CCommunication::Clear(); }

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
