// ConfigurationTexts.h: the one-line texts that whole configurations are
// saved as: a root just made by its factory and the two valid sample
// documents of examples/ after a read and a write.
#ifndef ZELT_TESTS_CONFIGURATIONTEXTS_H
#define ZELT_TESTS_CONFIGURATIONTEXTS_H

// A root made by the factory: the three child objects with their required
// members at their defaults, the three texts empty, no "EnableTrayiconMenu".
inline constexpr char kFreshRootText[] =
    R"({ "ClientSetting": { "Communication": { "DispServerHostname": "", "LogUploadInterval": 0)"
    R"(, "ManagementQueryInterval": 0 }, "HTTPS": { "InspectHostnameOnly": 0, "SSLFilter": 0)"
    R"(, "UpstreamVerification": 0 }, "ContentUpload": 0, "LogUpload": 0, "URLLocalCache": 0 })"
    R"(, "AdvancedRule": { }, "ContentUploadChannel": { "MaxFileSizeForScan": 0 })"
    R"(, "ProfileName": "", "SchemaVersion": "", "AdminPassword": "" })";

// examples/full.json saved: "/" is escaped, non-ASCII text is kept as UTF-8.
inline constexpr char kFullSampleText[] =
    R"({ "ClientSetting": { "Communication": { "AutoUpgradeQueryInterval": 3600)"
    R"(, "DispServerHostname": "disp.example.net", "LogServerHostname": "logs.example.net")"
    R"(, "EventLogUploadURL": "https:\/\/logs.example.net\/upload\/events?site=münchen")"
    R"(, "AutoupgradeURI": "https:\/\/updates.example.net\/agent\/latest", "LogUploadInterval": 600)"
    R"(, "ManagementQueryInterval": 300, "EnablePII": 1 }, "HTTPS": { "InspectHostnameOnly": 1)"
    R"(, "SSLFilter": 1, "UpstreamVerification": 0, "WhiteList": "bank.example.com;pay.example.org")"
    R"(, "WhiteListWithPorts": "mail.example.com:993;intranet.example.local:8443" })"
    R"(, "ContentUpload": 1, "FailOpen": 1, "LogUpload": 1, "URLLocalCache": 0, "SafeMode": 0)"
    R"(, "StatsPeriod": 900 }, "AdvancedRule": { "EnforceList": { "IPList": [ "10.0.0.0\/8")"
    R"(, "192.168.10.0\/24", "fd00::\/8" ], "ProcessNames": "chrome.exe;firefox.exe;msedge.exe")"
    R"(, "DomainLists": "*.example.com;*.example.org" })"
    R"(, "WhiteList": { "IPList": [ "172.16.0.0\/12", "203.0.113.7" ])"
    R"(, "VPNDescList": [ "Corporate VPN \"Main\"", "Büro-VPN Zürich", "東京 VPN 🔒" ])"
    R"(, "DomainLists": "update.example.com;time.example.net")"
    R"(, "ProcessNames": "C:\\Program Files\\Agent\\agent.exe;backup.exe" })"
    R"(, "EnforceProxyServer": 1, "BypassPrivateIP": 1, "BypassLocalIP": 0 })"
    R"(, "ContentUploadChannel": { "ClientRequestHeaders": [ "X-Tenant: acme")"
    R"(, "X-Region: eu-west\/1", "X-Label: \"Qualität\"" ], "MaxFileSizeForScan": 52428800)"
    R"(, "FileTypesToBlock": "exe;dll;scr", "FileTypesToScan": "pdf;docx;xlsx;zip" })"
    R"(, "ProfileName": "Standard-Profil für Außendienst", "SchemaVersion": "2.1")"
    R"(, "AdminPassword": "p@ss\/w\\rd\"42", "EnableTrayiconMenu": 1 })";

// examples/minimal.json saved.
inline constexpr char kMinimalSampleText[] =
    R"({ "ClientSetting": { "Communication": { "DispServerHostname": "disp.example.net")"
    R"(, "LogUploadInterval": 600, "ManagementQueryInterval": 300 })"
    R"(, "HTTPS": { "InspectHostnameOnly": 0, "SSLFilter": 1, "UpstreamVerification": 1 })"
    R"(, "ContentUpload": 0, "LogUpload": 1, "URLLocalCache": 1 }, "AdvancedRule": { })"
    R"(, "ContentUploadChannel": { "MaxFileSizeForScan": 10485760 }, "ProfileName": "Default")"
    R"(, "SchemaVersion": "1.0", "AdminPassword": "" })";

#endif  // ZELT_TESTS_CONFIGURATIONTEXTS_H
