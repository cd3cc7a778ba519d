// FuzzInput.h: what the fuzz targets share: reading typed values from the
// fuzzer's bytes, the configuration's keys, and a check that stops the
// program where an input breaks what the library promises.
#ifndef ZELT_FUZZ_FUZZINPUT_H
#define ZELT_FUZZ_FUZZINPUT_H

#include <zelt/zelt.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>

// Stops the program so that the fuzzer keeps the input; the replay test
// fails the same way.
#define FUZZ_CHECK(condition)                                                                  \
    do {                                                                                       \
        if (!(condition)) {                                                                    \
            std::fprintf(stderr, "%s:%d: check failed: %s\n", __FILE__, __LINE__, #condition); \
            std::abort();                                                                      \
        }                                                                                      \
    } while (false)

// Reads values from the front of the input; past its end every read gives 0.
class FuzzInput {
public:
    FuzzInput(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

    bool Empty() const { return position_ >= size_; }

    std::uint8_t Byte() { return Empty() ? 0 : data_[position_++]; }

    std::uint32_t Word() {
        std::uint32_t value = 0;
        for (int i = 0; i < 4; ++i) value = (value << 8) | Byte();
        return value;
    }

    // The bytes up to the next zero byte (or the end), which is skipped.
    std::string TextUpToZero() {
        std::string text;
        while (!Empty() && data_[position_] != 0) text += static_cast<char>(data_[position_++]);
        if (!Empty()) ++position_;
        return text;
    }

    // Up to maxUnits wide units; each is one byte (ASCII), two bytes (the
    // Basic Multilingual Plane, surrogates included) or four (any value).
    std::wstring WideText(std::size_t maxUnits) {
        const std::size_t count = Byte() % (maxUnits + 1);
        std::wstring text;
        for (std::size_t i = 0; i < count && !Empty(); ++i) {
            const std::uint8_t form = Byte();
            wchar_t unit;
            if (form < 0xC0) {
                unit = static_cast<wchar_t>(form & 0x7F);
            } else if (form < 0xF0) {
                unit = static_cast<wchar_t>((Byte() << 8) | Byte());
            } else {
                unit = static_cast<wchar_t>(Word());
            }
            if (unit == 0) unit = L'0';
            text += unit;
        }
        return text;
    }

private:
    const std::uint8_t* data_;
    std::size_t size_;
    std::size_t position_ = 0;
};

// The keys of the configuration document, in no particular order.
inline constexpr const wchar_t* kConfigurationKeys[] = {L"ClientSetting",
                                                        L"Communication",
                                                        L"HTTPS",
                                                        L"AdvancedRule",
                                                        L"ContentUploadChannel",
                                                        L"EnforceList",
                                                        L"WhiteList",
                                                        L"IPList",
                                                        L"VPNDescList",
                                                        L"ClientRequestHeaders",
                                                        L"ProfileName",
                                                        L"SchemaVersion",
                                                        L"AdminPassword",
                                                        L"EnableTrayiconMenu",
                                                        L"ContentUpload",
                                                        L"FailOpen",
                                                        L"LogUpload",
                                                        L"URLLocalCache",
                                                        L"SafeMode",
                                                        L"StatsPeriod",
                                                        L"AutoUpgradeQueryInterval",
                                                        L"DispServerHostname",
                                                        L"LogServerHostname",
                                                        L"EventLogUploadURL",
                                                        L"AutoupgradeURI",
                                                        L"LogUploadInterval",
                                                        L"ManagementQueryInterval",
                                                        L"EnablePII",
                                                        L"InspectHostnameOnly",
                                                        L"SSLFilter",
                                                        L"UpstreamVerification",
                                                        L"WhiteListWithPorts",
                                                        L"EnforceProxyServer",
                                                        L"BypassPrivateIP",
                                                        L"BypassLocalIP",
                                                        L"ProcessNames",
                                                        L"DomainLists",
                                                        L"MaxFileSizeForScan",
                                                        L"FileTypesToBlock",
                                                        L"FileTypesToScan",
                                                        L"StringValue"};

struct DestroyManager {
    void operator()(IJSONManager* manager) const { zeltDestroyJSONManager(manager); }
};
using ManagerPtr = std::unique_ptr<IJSONManager, DestroyManager>;

// A file path of its own for each process and name.
std::string FuzzFilePath(const char* name);

// What saving the manager's document writes; the save must succeed.
std::string SavedText(IJSONManager& manager);

// The path as the manager's wide file name.
std::wstring WidePath(const std::string& path);

#endif  // ZELT_FUZZ_FUZZINPUT_H
