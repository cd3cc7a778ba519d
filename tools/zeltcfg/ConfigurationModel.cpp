#include "ConfigurationModel.h"

#include <memory>
#include <utility>

namespace zeltcfg {

using namespace VextorJSConfig;

namespace {

Member Describe(const char* key, MemberKind kind, bool required) {
    Member member;
    member.key = key;
    member.kind = kind;
    member.required = required;
    member.present = [] { return true; };
    return member;
}

template <class E>
Member RequiredInteger(const char* key, E* element, DWORD (E::*get)() const,
                       int (E::*set)(const DWORD*)) {
    Member member = Describe(key, MemberKind::Integer, true);
    member.integer = [element, get] { return (element->*get)(); };
    member.setInteger = [element, set](const DWORD* value) { return (element->*set)(value); };
    return member;
}

template <class E>
Member OptionalInteger(const char* key, E* element, int (E::*get)(DWORD*) const,
                       void (E::*set)(const DWORD*)) {
    Member member = Describe(key, MemberKind::Integer, false);
    member.present = [element, get] {
        DWORD value;
        return (element->*get)(&value) == ZELT_SUCCESS;
    };
    member.integer = [element, get] {
        DWORD value = 0;
        (element->*get)(&value);
        return value;
    };
    member.setInteger = [element, set](const DWORD* value) {
        (element->*set)(value);
        return ZELT_SUCCESS;
    };
    return member;
}

template <class E>
Member RequiredText(const char* key, E* element, const std::wstring* (E::*get)() const,
                    int (E::*set)(const std::wstring*)) {
    Member member = Describe(key, MemberKind::Text, true);
    member.text = [element, get] { return *(element->*get)(); };
    member.setText = [element, set](const std::wstring* value) { return (element->*set)(value); };
    return member;
}

template <class E>
Member OptionalText(const char* key, E* element, int (E::*get)(std::wstring*) const,
                    void (E::*set)(const std::wstring*)) {
    Member member = Describe(key, MemberKind::Text, false);
    member.present = [element, get] {
        std::wstring value;
        return (element->*get)(&value) == ZELT_SUCCESS;
    };
    member.text = [element, get] {
        std::wstring value;
        (element->*get)(&value);
        return value;
    };
    member.setText = [element, set](const std::wstring* value) {
        (element->*set)(value);
        return ZELT_SUCCESS;
    };
    return member;
}

template <class E, class C>
Member RequiredChild(const char* key, E* element, C* (E::*get)(), std::vector<Member> (*bind)(C&)) {
    Member member = Describe(key, MemberKind::Object, true);
    member.members = [element, get, bind] { return bind(*(element->*get)()); };
    return member;
}

// An optional child, object or list: present while its getter answers 1; a
// new instance from the factory, copied in by the setter, makes it present.
template <class E, class C>
Member OptionalChild(const char* key, MemberKind kind, E* element, int (E::*get)(C**),
                     void (E::*set)(const C*), C* (*create)()) {
    Member member = Describe(key, kind, false);
    member.present = [element, get] {
        C* child = nullptr;
        return (element->*get)(&child) == ZELT_SUCCESS;
    };
    member.makePresent = [member, element, set, create] {
        if (member.present()) return;
        std::unique_ptr<C> empty(create());
        (element->*set)(empty.get());
    };
    member.makeAbsent = [element, set] { (element->*set)(nullptr); };
    return member;
}

// The child itself; only called while it is present.
template <class E, class C>
C& PresentChild(E* element, int (E::*get)(C**)) {
    C* child = nullptr;
    (element->*get)(&child);
    return *child;
}

template <class E, class C>
Member OptionalObject(const char* key, E* element, int (E::*get)(C**), void (E::*set)(const C*),
                      C* (*create)(), std::vector<Member> (*bind)(C&)) {
    Member member = OptionalChild(key, MemberKind::Object, element, get, set, create);
    member.members = [element, get, bind] { return bind(PresentChild(element, get)); };
    return member;
}

template <class E, class L, class Entry>
Member OptionalList(const char* key, E* element, int (E::*get)(L**), void (E::*set)(const L*),
                    L* (*create)(), Entry* (*createEntry)()) {
    Member member = OptionalChild(key, MemberKind::List, element, get, set, create);
    member.entries = [element, get] {
        L& list = PresentChild(element, get);
        std::vector<const std::wstring*> entries;
        entries.reserve(list.GetItemCount());
        for (DWORD index = 0; index < list.GetItemCount(); ++index)
            entries.push_back(list.GetItem(index)->GetStringValue());
        return entries;
    };
    member.setEntry = [element, get](DWORD index, const std::wstring& value) {
        return PresentChild(element, get).GetItem(index)->SetStringValue(&value);
    };
    const auto makePresent = member.makePresent;
    member.addEntry = [element, get, createEntry, makePresent](const std::wstring& value) {
        makePresent();
        std::unique_ptr<Entry> entry(createEntry());
        entry->SetStringValue(&value);
        PresentChild(element, get).AddItem(entry.get());
    };
    member.removeEntry = [element, get](DWORD index) {
        PresentChild(element, get).RemoveItem(index);
    };
    return member;
}

std::vector<Member> CommunicationMembers(ICommunication& e) {
    using I = ICommunication;
    return {
        OptionalInteger("AutoUpgradeQueryInterval", &e, &I::GetAutoUpgradeQueryInterval,
                        &I::SetAutoUpgradeQueryInterval),
        RequiredText("DispServerHostname", &e, &I::GetDispServerHostname,
                     &I::SetDispServerHostname),
        OptionalText("LogServerHostname", &e, &I::GetLogServerHostname, &I::SetLogServerHostname),
        OptionalText("EventLogUploadURL", &e, &I::GetEventLogUploadURL, &I::SetEventLogUploadURL),
        OptionalText("AutoupgradeURI", &e, &I::GetAutoupgradeURI, &I::SetAutoupgradeURI),
        RequiredInteger("LogUploadInterval", &e, &I::GetLogUploadInterval,
                        &I::SetLogUploadInterval),
        RequiredInteger("ManagementQueryInterval", &e, &I::GetManagementQueryInterval,
                        &I::SetManagementQueryInterval),
        OptionalInteger("EnablePII", &e, &I::GetEnablePII, &I::SetEnablePII),
    };
}

std::vector<Member> HTTPSMembers(IHTTPS& e) {
    using I = IHTTPS;
    return {
        RequiredInteger("InspectHostnameOnly", &e, &I::GetInspectHostnameOnly,
                        &I::SetInspectHostnameOnly),
        RequiredInteger("SSLFilter", &e, &I::GetSSLFilter, &I::SetSSLFilter),
        RequiredInteger("UpstreamVerification", &e, &I::GetUpstreamVerification,
                        &I::SetUpstreamVerification),
        OptionalText("WhiteList", &e, &I::GetWhiteList, &I::SetWhiteList),
        OptionalText("WhiteListWithPorts", &e, &I::GetWhiteListWithPorts,
                     &I::SetWhiteListWithPorts),
    };
}

std::vector<Member> ClientSettingMembers(IClientSetting& e) {
    using I = IClientSetting;
    return {
        RequiredChild("Communication", &e, &I::GetCommunication, &CommunicationMembers),
        RequiredChild("HTTPS", &e, &I::GetHTTPS, &HTTPSMembers),
        RequiredInteger("ContentUpload", &e, &I::GetContentUpload, &I::SetContentUpload),
        OptionalInteger("FailOpen", &e, &I::GetFailOpen, &I::SetFailOpen),
        RequiredInteger("LogUpload", &e, &I::GetLogUpload, &I::SetLogUpload),
        RequiredInteger("URLLocalCache", &e, &I::GetURLLocalCache, &I::SetURLLocalCache),
        OptionalInteger("SafeMode", &e, &I::GetSafeMode, &I::SetSafeMode),
        OptionalInteger("StatsPeriod", &e, &I::GetStatsPeriod, &I::SetStatsPeriod),
    };
}

std::vector<Member> EnforceListMembers(IEnforceList& e) {
    using I = IEnforceList;
    return {
        OptionalList("IPList", &e, &I::GetIPList, &I::SetIPList, &IPList_CreateNewInstance,
                     &IPListArray_CreateNewInstance),
        OptionalText("ProcessNames", &e, &I::GetProcessNames, &I::SetProcessNames),
        OptionalText("DomainLists", &e, &I::GetDomainLists, &I::SetDomainLists),
    };
}

std::vector<Member> WhiteListMembers(IWhiteList& e) {
    using I = IWhiteList;
    return {
        OptionalList("IPList", &e, &I::GetIPList, &I::SetIPList, &IPList_CreateNewInstance,
                     &IPListArray_CreateNewInstance),
        OptionalList("VPNDescList", &e, &I::GetVPNDescList, &I::SetVPNDescList,
                     &VPNDescList_CreateNewInstance, &VPNDescListArray_CreateNewInstance),
        OptionalText("DomainLists", &e, &I::GetDomainLists, &I::SetDomainLists),
        OptionalText("ProcessNames", &e, &I::GetProcessNames, &I::SetProcessNames),
    };
}

std::vector<Member> AdvancedRuleMembers(IAdvancedRule& e) {
    using I = IAdvancedRule;
    return {
        OptionalObject("EnforceList", &e, &I::GetEnforceList, &I::SetEnforceList,
                       &EnforceList_CreateNewInstance, &EnforceListMembers),
        OptionalObject("WhiteList", &e, &I::GetWhiteList, &I::SetWhiteList,
                       &WhiteList_CreateNewInstance, &WhiteListMembers),
        OptionalInteger("EnforceProxyServer", &e, &I::GetEnforceProxyServer,
                        &I::SetEnforceProxyServer),
        OptionalInteger("BypassPrivateIP", &e, &I::GetBypassPrivateIP, &I::SetBypassPrivateIP),
        OptionalInteger("BypassLocalIP", &e, &I::GetBypassLocalIP, &I::SetBypassLocalIP),
    };
}

std::vector<Member> ContentUploadChannelMembers(IContentUploadChannel& e) {
    using I = IContentUploadChannel;
    return {
        OptionalList("ClientRequestHeaders", &e, &I::GetClientRequestHeaders,
                     &I::SetClientRequestHeaders, &ClientRequestHeaders_CreateNewInstance,
                     &ClientRequestHeadersArray_CreateNewInstance),
        RequiredInteger("MaxFileSizeForScan", &e, &I::GetMaxFileSizeForScan,
                        &I::SetMaxFileSizeForScan),
        OptionalText("FileTypesToBlock", &e, &I::GetFileTypesToBlock, &I::SetFileTypesToBlock),
        OptionalText("FileTypesToScan", &e, &I::GetFileTypesToScan, &I::SetFileTypesToScan),
    };
}

std::vector<Member> RootMembers(IVextorJSConfig& e) {
    using I = IVextorJSConfig;
    return {
        RequiredChild("ClientSetting", &e, &I::GetClientSetting, &ClientSettingMembers),
        RequiredChild("AdvancedRule", &e, &I::GetAdvancedRule, &AdvancedRuleMembers),
        RequiredChild("ContentUploadChannel", &e, &I::GetContentUploadChannel,
                      &ContentUploadChannelMembers),
        RequiredText("ProfileName", &e, &I::GetProfileName, &I::SetProfileName),
        RequiredText("SchemaVersion", &e, &I::GetSchemaVersion, &I::SetSchemaVersion),
        RequiredText("AdminPassword", &e, &I::GetAdminPassword, &I::SetAdminPassword),
        OptionalInteger("EnableTrayiconMenu", &e, &I::GetEnableTrayiconMenu,
                        &I::SetEnableTrayiconMenu),
    };
}

SchemaNode DescribeSchema(const Member& member) {
    SchemaNode node{member.key, member.kind, member.required, {}};
    if (member.kind != MemberKind::Object) return node;
    if (member.makePresent) member.makePresent();
    for (const Member& child : member.members()) node.members.push_back(DescribeSchema(child));
    return node;
}

}  // namespace

const char* DescribeKind(MemberKind kind) {
    switch (kind) {
        case MemberKind::Object:
            return "an object";
        case MemberKind::List:
            return "a list";
        case MemberKind::Integer:
            return "an integer";
        case MemberKind::Text:
            return "a string";
    }
    return "";
}

void MakeAbsent(const Member& member) {
    if (member.kind == MemberKind::Integer)
        member.setInteger(nullptr);
    else if (member.kind == MemberKind::Text)
        member.setText(nullptr);
    else
        member.makeAbsent();
}

Member BindConfiguration(IVextorJSConfig& config) {
    Member member = Describe("", MemberKind::Object, true);
    member.members = [&config] { return RootMembers(config); };
    return member;
}

const SchemaNode* FindSchemaMember(const SchemaNode& object, const std::string& key) {
    for (const SchemaNode& member : object.members)
        if (member.key == key) return &member;
    return nullptr;
}

std::vector<std::string> SchemaKeys(const SchemaNode& object) {
    std::vector<std::string> keys;
    for (const SchemaNode& member : object.members) keys.push_back(member.key);
    return keys;
}

const SchemaNode& ConfigurationSchema() {
    // Taken from a scratch tree in which every optional child is present.
    static const SchemaNode schema = [] {
        std::unique_ptr<IVextorJSConfig> scratch(VextorJSConfig_CreateNewInstance());
        return DescribeSchema(BindConfiguration(*scratch));
    }();
    return schema;
}

}  // namespace zeltcfg
