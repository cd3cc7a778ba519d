// RoundTripFuzzer.cpp: text to typed tree and back. The input is imported as
// text and read into a configuration; when the read succeeds the tree is
// written, saved, imported again and read again: both trees must be equal
// member for member, and saving the second must give the same bytes (the
// round trip is a fixed point). A read that fails must leave the tree as a
// new one.
#include <zelt/zelt.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "FuzzInput.h"

namespace {

using namespace VextorJSConfig;

// The tree as lines "key=value", in a fixed order; absent members say so.
class Flattened {
public:
    std::vector<std::wstring> lines;

    void Text(const wchar_t* key, const std::wstring* value) { Add(key, L"\"" + *value + L"\""); }
    void Number(const wchar_t* key, DWORD value) { Add(key, std::to_wstring(value)); }

    template <class Element>
    void OptionalNumber(const wchar_t* key, const Element& element,
                        int (Element::*get)(DWORD*) const) {
        DWORD value = 0;
        const int result = (element.*get)(&value);
        Add(key,
            result == ZELT_SUCCESS ? std::to_wstring(value) : L"absent " + std::to_wstring(result));
    }

    template <class Element>
    void OptionalText(const wchar_t* key, const Element& element,
                      int (Element::*get)(std::wstring*) const) {
        std::wstring value;
        const int result = (element.*get)(&value);
        Add(key,
            result == ZELT_SUCCESS ? L"\"" + value + L"\"" : L"absent " + std::to_wstring(result));
    }

    template <class List>
    void Items(const wchar_t* key, int result, List* list) {
        // An empty list is never written, so it reads back as absent: the two
        // are the same tree for the round trip.
        if (result == ZELT_SUCCESS && list->GetItemCount() == 0) result = ZELT_NOT_PRESENT;
        if (result != ZELT_SUCCESS) {
            Add(key, L"absent " + std::to_wstring(result));
            return;
        }
        Add(key, L"items " + std::to_wstring(list->GetItemCount()));
        for (DWORD i = 0; i < list->GetItemCount(); ++i)
            Text(key, list->GetItem(i)->GetStringValue());
    }

private:
    void Add(const wchar_t* key, const std::wstring& value) {
        lines.push_back(key + (L"=" + value));
    }
};

std::vector<std::wstring> Flatten(IVextorJSConfig& root) {
    Flattened out;
    out.Text(L"ProfileName", root.GetProfileName());
    out.Text(L"SchemaVersion", root.GetSchemaVersion());
    out.Text(L"AdminPassword", root.GetAdminPassword());
    out.OptionalNumber(L"EnableTrayiconMenu", root, &IVextorJSConfig::GetEnableTrayiconMenu);

    IClientSetting& client = *root.GetClientSetting();
    out.Number(L"ContentUpload", client.GetContentUpload());
    out.Number(L"LogUpload", client.GetLogUpload());
    out.Number(L"URLLocalCache", client.GetURLLocalCache());
    out.OptionalNumber(L"FailOpen", client, &IClientSetting::GetFailOpen);
    out.OptionalNumber(L"SafeMode", client, &IClientSetting::GetSafeMode);
    out.OptionalNumber(L"StatsPeriod", client, &IClientSetting::GetStatsPeriod);

    ICommunication& communication = *client.GetCommunication();
    out.OptionalNumber(L"AutoUpgradeQueryInterval", communication,
                       &ICommunication::GetAutoUpgradeQueryInterval);
    out.Text(L"DispServerHostname", communication.GetDispServerHostname());
    out.OptionalText(L"LogServerHostname", communication, &ICommunication::GetLogServerHostname);
    out.OptionalText(L"EventLogUploadURL", communication, &ICommunication::GetEventLogUploadURL);
    out.OptionalText(L"AutoupgradeURI", communication, &ICommunication::GetAutoupgradeURI);
    out.Number(L"LogUploadInterval", communication.GetLogUploadInterval());
    out.Number(L"ManagementQueryInterval", communication.GetManagementQueryInterval());
    out.OptionalNumber(L"EnablePII", communication, &ICommunication::GetEnablePII);

    IHTTPS& https = *client.GetHTTPS();
    out.Number(L"InspectHostnameOnly", https.GetInspectHostnameOnly());
    out.Number(L"SSLFilter", https.GetSSLFilter());
    out.Number(L"UpstreamVerification", https.GetUpstreamVerification());
    out.OptionalText(L"WhiteList", https, &IHTTPS::GetWhiteList);
    out.OptionalText(L"WhiteListWithPorts", https, &IHTTPS::GetWhiteListWithPorts);

    IAdvancedRule& rule = *root.GetAdvancedRule();
    out.OptionalNumber(L"EnforceProxyServer", rule, &IAdvancedRule::GetEnforceProxyServer);
    out.OptionalNumber(L"BypassPrivateIP", rule, &IAdvancedRule::GetBypassPrivateIP);
    out.OptionalNumber(L"BypassLocalIP", rule, &IAdvancedRule::GetBypassLocalIP);
    IEnforceList* enforce = nullptr;
    if (rule.GetEnforceList(&enforce) == ZELT_SUCCESS) {
        IIPList* list = nullptr;
        const int listResult = enforce->GetIPList(&list);
        out.Items(L"EnforceList.IPList", listResult, list);
        out.OptionalText(L"EnforceList.ProcessNames", *enforce, &IEnforceList::GetProcessNames);
        out.OptionalText(L"EnforceList.DomainLists", *enforce, &IEnforceList::GetDomainLists);
    } else {
        out.lines.push_back(L"EnforceList=absent");
    }
    IWhiteList* white = nullptr;
    if (rule.GetWhiteList(&white) == ZELT_SUCCESS) {
        IIPList* list = nullptr;
        const int listResult = white->GetIPList(&list);
        out.Items(L"WhiteList.IPList", listResult, list);
        IVPNDescList* vpn = nullptr;
        const int vpnResult = white->GetVPNDescList(&vpn);
        out.Items(L"WhiteList.VPNDescList", vpnResult, vpn);
        out.OptionalText(L"WhiteList.DomainLists", *white, &IWhiteList::GetDomainLists);
        out.OptionalText(L"WhiteList.ProcessNames", *white, &IWhiteList::GetProcessNames);
    } else {
        out.lines.push_back(L"WhiteList=absent");
    }

    IContentUploadChannel& channel = *root.GetContentUploadChannel();
    IClientRequestHeaders* headers = nullptr;
    const int headersResult = channel.GetClientRequestHeaders(&headers);
    out.Items(L"ClientRequestHeaders", headersResult, headers);
    out.Number(L"MaxFileSizeForScan", channel.GetMaxFileSizeForScan());
    out.OptionalText(L"FileTypesToBlock", channel, &IContentUploadChannel::GetFileTypesToBlock);
    out.OptionalText(L"FileTypesToScan", channel, &IContentUploadChannel::GetFileTypesToScan);
    return out.lines;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // The string import takes a text up to its first zero byte.
    const std::string text(reinterpret_cast<const char*>(data),
                           strnlen(reinterpret_cast<const char*>(data), size));
    if (text.empty()) return 0;
    ManagerPtr first(zeltCreateJSONManager(nullptr, 0));
    const int imported = first->ImportFromJSONString(text.c_str(), static_cast<int>(text.size()));
    FUZZ_CHECK(imported == ZELT_SUCCESS || imported == ZELT_BAD_ARGUMENT);
    FUZZ_CHECK((first->GetRootElement() != nullptr) == (imported == ZELT_SUCCESS));
    if (imported != ZELT_SUCCESS) return 0;

    std::unique_ptr<IVextorJSConfig> tree(VextorJSConfig_CreateNewInstance());
    const int read = tree->ReadFromJSONMgr(first.get(), first->GetRootElement());
    FUZZ_CHECK(read == ZELT_SUCCESS || read == ZELT_FAILED);
    if (read != ZELT_SUCCESS) {
        std::unique_ptr<IVextorJSConfig> fresh(VextorJSConfig_CreateNewInstance());
        FUZZ_CHECK(Flatten(*tree) == Flatten(*fresh));
        return 0;
    }
    FUZZ_CHECK(tree->WriteToJSONMgr(first.get(), nullptr, 1) == ZELT_SUCCESS);
    const std::string saved = SavedText(*first);

    ManagerPtr second(zeltCreateJSONManager(nullptr, 0));
    FUZZ_CHECK(second->ImportFromJSONString(saved.c_str(), static_cast<int>(saved.size())) ==
               ZELT_SUCCESS);
    std::unique_ptr<IVextorJSConfig> again(VextorJSConfig_CreateNewInstance());
    FUZZ_CHECK(again->ReadFromJSONMgr(second.get(), second->GetRootElement()) == ZELT_SUCCESS);
    FUZZ_CHECK(Flatten(*tree) == Flatten(*again));
    FUZZ_CHECK(again->WriteToJSONMgr(second.get(), nullptr, 1) == ZELT_SUCCESS);
    FUZZ_CHECK(SavedText(*second) == saved);
    return 0;
}
