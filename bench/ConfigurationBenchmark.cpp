// Whole-configuration read and write as its lists grow. Both should cost
// time in proportion to the document: compare the per-entry figures.
#include <zelt/zelt.h>

#include <benchmark/benchmark.h>

#include <string>

namespace {

// A valid configuration whose three lists hold count entries each.
std::string MakeConfiguration(int count) {
    auto list = [count](const std::string& prefix) {
        std::string items;
        for (int i = 0; i < count; ++i)
            items += (i ? ", \"" : "\"") + prefix + std::to_string(i) + "\"";
        return "[ " + items + " ]";
    };
    return "{ \"ClientSetting\": { \"Communication\": { \"DispServerHostname\": \"disp\", "
           "\"LogUploadInterval\": 1, \"ManagementQueryInterval\": 2 }, \"HTTPS\": { "
           "\"InspectHostnameOnly\": 0, \"SSLFilter\": 1, \"UpstreamVerification\": 1 }, "
           "\"ContentUpload\": 0, \"LogUpload\": 1, \"URLLocalCache\": 1 }, "
           "\"AdvancedRule\": { \"EnforceList\": { \"IPList\": " +
           list("10.0.") + " }, \"WhiteList\": { \"IPList\": " + list("192.168.") +
           ", \"VPNDescList\": " + list("vpn-") +
           " } }, \"ContentUploadChannel\": { \"ClientRequestHeaders\": " + list("X-Header: ") +
           ", \"MaxFileSizeForScan\": 1 }, \"ProfileName\": \"p\", "
           "\"SchemaVersion\": \"1\", \"AdminPassword\": \"\" }";
}

void ReadWholeConfiguration(benchmark::State& state) {
    std::string text = MakeConfiguration(static_cast<int>(state.range(0)));
    IJSONManager* manager = zeltCreateJSONManager(text.data(), static_cast<int>(text.size()));
    VextorJSConfig::IVextorJSConfig* config = VextorJSConfig::VextorJSConfig_CreateNewInstance();
    for (auto _ : state)
        if (config->ReadFromJSONMgr(manager, manager->GetRootElement()) != ZELT_SUCCESS)
            state.SkipWithError("the configuration did not read");
    delete config;
    zeltDestroyJSONManager(manager);
    state.SetItemsProcessed(state.iterations() * state.range(0) * 4);
}
BENCHMARK(ReadWholeConfiguration)->RangeMultiplier(8)->Range(8, 32768);

void WriteWholeConfiguration(benchmark::State& state) {
    std::string text = MakeConfiguration(static_cast<int>(state.range(0)));
    IJSONManager* manager = zeltCreateJSONManager(text.data(), static_cast<int>(text.size()));
    VextorJSConfig::IVextorJSConfig* config = VextorJSConfig::VextorJSConfig_CreateNewInstance();
    config->ReadFromJSONMgr(manager, manager->GetRootElement());
    for (auto _ : state)
        if (config->WriteToJSONMgr(manager, nullptr, 1) != ZELT_SUCCESS)
            state.SkipWithError("the configuration did not write");
    delete config;
    zeltDestroyJSONManager(manager);
    state.SetItemsProcessed(state.iterations() * state.range(0) * 4);
}
BENCHMARK(WriteWholeConfiguration)->RangeMultiplier(8)->Range(8, 32768);

}  // namespace
