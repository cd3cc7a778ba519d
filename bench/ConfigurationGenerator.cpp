#include "ConfigurationGenerator.h"

#include <random>

namespace zelt_bench {

namespace {

// The raw output of std::mt19937 is fixed by the C++ standard, unlike its
// distributions: reduce it by hand so that every library gives the same text.
class Random {
public:
    explicit Random(std::uint32_t seed) : engine_(seed) {}
    std::uint32_t Below(std::uint32_t bound) { return engine_() % bound; }
    std::string Number(std::uint32_t bound) { return std::to_string(Below(bound)); }

    template <std::size_t Size>
    const char* Choose(const char* const (&choices)[Size]) {
        return choices[Below(Size)];
    }

private:
    std::mt19937 engine_;
};

// Writes text as the library's writer does: quoted, with \" \\ \/ escaped.
// The generated strings hold no control characters.
void AppendString(const std::string& text, std::string& out) {
    out += '"';
    for (char c : text) {
        if (c == '"' || c == '\\' || c == '/') out += '\\';
        out += c;
    }
    out += '"';
}

// Each function draws its numbers in a fixed order before it builds the text.
std::string Address(Random& random) {
    const std::uint32_t kind = random.Below(4);
    const std::string a = random.Number(256), b = random.Number(256), c = random.Number(256);
    switch (kind) {
        case 0:  // an address
            return "10." + a + "." + b + "." + c;
        case 1:  // an IPv4 block
            return "172." + a + "." + b + ".0/" + std::to_string(16 + random.Below(9));
        case 2:  // an IPv6 block
            return "fd00:" + a + ":" + b + ":" + c + "::/" + std::to_string(48 + random.Below(17));
        default:  // a host name
            static const char* const kRegions[] = {"eu-west", "us-east", "ap-south", "sa-east"};
            return "host-" + a + b + "." + kRegions[random.Below(4)] + ".example.net";
    }
}

std::string VPNDescription(Random& random) {
    static const char* const kNames[] = {"Büro-VPN Zürich ", "東京 VPN 🔒 ",
                                         "Filiale Köln ",    "Corporate VPN \"Main\" ",
                                         "C:\\VPN\\client-", "Site-to-site eu/"};
    const char* name = random.Choose(kNames);
    return name + random.Number(100000);
}

std::string HeaderLine(Random& random) {
    static const char* const kNames[] = {"X-Tenant", "X-Region", "X-Label", "X-Path"};
    static const char* const kValues[] = {"acme-", "eu-west/", "\"Qualität\" ", "C:\\data\\"};
    const std::uint32_t kind = random.Below(4);
    const std::string number = random.Number(1000);
    return std::string(kNames[kind]) + "-" + number + ": " + kValues[kind] + random.Number(100000);
}

// How one entry of a changed document differs from the generated one.
enum class EntryChange { Kept, Changed, Removed, InsertedBefore };

// Picks the change of each entry from a stream of its own, so that the
// generated entries, drawn from the main stream, stay the same.
class EntryChanges {
public:
    explicit EntryChanges(std::uint32_t seed) : random_(seed) {}
    EntryChange Next() {
        if (random_.Below(kEntriesPerChange) != 0) return EntryChange::Kept;
        return static_cast<EntryChange>(1 + random_.Below(3));
    }
    Random& Stream() { return random_; }

private:
    static constexpr std::uint32_t kEntriesPerChange = 100;
    Random random_;
};

// A list of count entries: `[ "a", "b" ]`, with changes when given.
template <class Entry>
std::string List(std::size_t count, Random& random, Entry entry, EntryChanges* changes) {
    std::string out = "[";
    const auto append = [&out](const std::string& text) {
        out += out.size() == 1 ? " " : ", ";
        AppendString(text, out);
    };
    for (std::size_t i = 0; i < count; ++i) {
        const std::string generated = entry(random);
        switch (changes == nullptr ? EntryChange::Kept : changes->Next()) {
            case EntryChange::Kept:
                append(generated);
                break;
            case EntryChange::Changed:
                append(entry(changes->Stream()));
                break;
            case EntryChange::Removed:
                break;
            case EntryChange::InsertedBefore:
                append(entry(changes->Stream()));
                append(generated);
                break;
        }
    }
    return out + " ]";
}

// Host name patterns separated by ';', exactly kDomainListsBytes long.
std::string DomainLists(Random& random) {
    std::string text;
    while (text.size() < kDomainListsBytes)
        text += "*.d" + random.Number(1000000) + ".example.com;";
    text.resize(kDomainListsBytes);
    return text;
}

std::string Quoted(const std::string& text) {
    std::string out;
    AppendString(text, out);
    return out;
}

const char kMinimal[] =
    "{ \"ClientSetting\": { \"Communication\": { \"DispServerHostname\": \"disp.example.net\", "
    "\"LogUploadInterval\": 600, \"ManagementQueryInterval\": 300 }, \"HTTPS\": { "
    "\"InspectHostnameOnly\": 0, \"SSLFilter\": 1, \"UpstreamVerification\": 1 }, "
    "\"ContentUpload\": 0, \"LogUpload\": 1, \"URLLocalCache\": 1 }, \"AdvancedRule\": { }, "
    "\"ContentUploadChannel\": { \"MaxFileSizeForScan\": 10485760 }, \"ProfileName\": "
    "\"Default\", \"SchemaVersion\": \"1.0\", \"AdminPassword\": \"\" }";

std::string Generate(std::size_t entriesPerList, std::uint32_t seed, EntryChanges* changes) {
    if (entriesPerList == 0) return kMinimal;
    Random random(seed);
    const std::size_t n = entriesPerList;
    // One statement per random part: the operands of + are not sequenced.
    std::string text =
        "{ \"ClientSetting\": { \"Communication\": { \"AutoUpgradeQueryInterval\": 3600, "
        "\"DispServerHostname\": \"disp.example.net\", \"LogServerHostname\": "
        "\"logs.example.net\", \"EventLogUploadURL\": "
        "\"https:\\/\\/logs.example.net\\/upload\\/events?site=münchen\", \"AutoupgradeURI\": "
        "\"https:\\/\\/updates.example.net\\/agent\\/latest\", \"LogUploadInterval\": 600, "
        "\"ManagementQueryInterval\": 300, \"EnablePII\": 1 }, \"HTTPS\": { "
        "\"InspectHostnameOnly\": 1, \"SSLFilter\": 1, \"UpstreamVerification\": 0, "
        "\"WhiteList\": \"bank.example.com;pay.example.org\", \"WhiteListWithPorts\": "
        "\"mail.example.com:993;intranet.example.local:8443\" }, \"ContentUpload\": 1, "
        "\"FailOpen\": 1, \"LogUpload\": 1, \"URLLocalCache\": 0, \"SafeMode\": 0, "
        "\"StatsPeriod\": 900 }, \"AdvancedRule\": { \"EnforceList\": { \"IPList\": ";
    text += List(n, random, Address, changes);
    text += ", \"ProcessNames\": \"chrome.exe;firefox.exe;msedge.exe\", \"DomainLists\": ";
    text += Quoted(DomainLists(random));
    text += " }, \"WhiteList\": { \"IPList\": ";
    text += List(n, random, Address, changes);
    text += ", \"VPNDescList\": ";
    text += List(n, random, VPNDescription, changes);
    text += ", \"DomainLists\": ";
    text += Quoted(DomainLists(random));
    text +=
        ", \"ProcessNames\": \"C:\\\\Program Files\\\\Agent\\\\agent.exe;backup.exe\" }, "
        "\"EnforceProxyServer\": 1, \"BypassPrivateIP\": 1, \"BypassLocalIP\": 0 }, "
        "\"ContentUploadChannel\": { \"ClientRequestHeaders\": ";
    text += List(n, random, HeaderLine, changes);
    text +=
        ", \"MaxFileSizeForScan\": 52428800, \"FileTypesToBlock\": \"exe;dll;scr\", "
        "\"FileTypesToScan\": \"pdf;docx;xlsx;zip\" }, \"ProfileName\": \"Standard-Profil "
        "für Außendienst\", \"SchemaVersion\": \"2.1\", \"AdminPassword\": "
        "\"p@ss\\/w\\\\rd\\\"42\", \"EnableTrayiconMenu\": 1 }";
    return text;
}

}  // namespace

std::string GenerateConfiguration(std::size_t entriesPerList, std::uint32_t seed) {
    return Generate(entriesPerList, seed, nullptr);
}

std::string GenerateChangedConfiguration(std::size_t entriesPerList, std::uint32_t seed) {
    EntryChanges changes(seed + 1);
    return Generate(entriesPerList, seed, &changes);
}

}  // namespace zelt_bench
