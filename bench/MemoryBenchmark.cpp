// Peak heap of the library's whole-configuration jobs beside json-c's parse,
// in bytes per document byte, for generated documents of each size. The
// document text itself is allocated before counting starts and is not
// included. Arguments: entry counts per string list (default 0 1000 100000
// 1000000).
#include "AllocationCounter.h"
#include "ConfigurationGenerator.h"

#include <zelt/zelt.h>

#include <json-c/json.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

using zelt_bench::HeapInUse;
using zelt_bench::HeapPeak;
using zelt_bench::ResetHeapPeak;

// Runs job and gives the peak of the heap above its level before the job.
template <class Job>
std::size_t PeakDuring(Job job) {
    ResetHeapPeak();
    const std::size_t before = HeapInUse();
    job();
    return HeapPeak() - before;
}

struct Figures {
    std::size_t jsoncParse;  // the json-c tree while it is parsed
    std::size_t wholeLoad;   // import and root read: both trees alive
    std::size_t loaded;      // both trees after the load
    std::size_t writeSave;   // write and save, above the loaded trees
};

Figures Measure(const std::string& text, const std::wstring& savePath) {
    Figures figures{};
    figures.jsoncParse = PeakDuring([&] { json_object_put(json_tokener_parse(text.c_str())); });

    IJSONManager* manager = nullptr;
    VextorJSConfig::IVextorJSConfig* config = nullptr;
    const std::size_t before = HeapInUse();
    figures.wholeLoad = PeakDuring([&] {
        manager = zeltCreateJSONManager(nullptr, 0);
        config = VextorJSConfig::VextorJSConfig_CreateNewInstance();
        if (manager->ImportFromJSONString(text.data(), static_cast<int>(text.size())) != 1 ||
            config->ReadFromJSONMgr(manager, manager->GetRootElement()) != 1) {
            std::fprintf(stderr, "the configuration did not load\n");
            std::exit(1);
        }
    });
    figures.loaded = HeapInUse() - before;
    figures.writeSave = PeakDuring([&] {
        if (config->WriteToJSONMgr(manager, nullptr, 1) != 1 ||
            manager->SaveToJSONFile(savePath.c_str()) != 1) {
            std::fprintf(stderr, "the configuration did not write and save\n");
            std::exit(1);
        }
    });
    delete config;
    zeltDestroyJSONManager(manager);
    return figures;
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<std::size_t> sizes;
    for (int i = 1; i < argc; ++i) sizes.push_back(std::strtoull(argv[i], nullptr, 10));
    if (sizes.empty()) sizes = {0, 1000, 100000, 1000000};
    const std::string path = "/tmp/zelt-bench-memory-" + std::to_string(getpid()) + ".json";
    const std::wstring widePath(path.begin(), path.end());

    std::printf("Peak heap in bytes per document byte (blocks counted with their header):\n");
    std::printf("%10s %14s %12s %12s %12s %12s\n", "entries", "document", "json-c parse",
                "whole load", "after load", "write+save");
    for (std::size_t entries : sizes) {
        const std::string text = zelt_bench::GenerateConfiguration(entries);
        const Figures figures = Measure(text, widePath);
        const double bytes = static_cast<double>(text.size());
        std::printf("%10zu %14zu %12.2f %12.2f %12.2f %12.2f\n", entries, text.size(),
                    figures.jsoncParse / bytes, figures.wholeLoad / bytes, figures.loaded / bytes,
                    figures.writeSave / bytes);
    }
    std::remove(path.c_str());
    std::printf("Target: whole load at most 11 bytes per document byte.\n");
    return 0;
}
