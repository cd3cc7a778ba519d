// The resident set over many whole-document cycles of examples/full.json:
// create a manager, import, read into the tree, write, save, destroy. After a
// warm-up the resident set must stay flat: it may grow by less than 1 %.
// A second run imports from the file instead of the text: each file import
// keeps its read buffer (file size + 1 bytes, in one heap block) on purpose,
// so there the resident set must grow by those blocks and by nothing more
// (within 1 %). Exits 1 when either check fails.
// Arguments: the cycles of the text run (default 1000000) and of the file run
// (default 100000, a tenth: the kept buffers add up).
#include <zelt/zelt.h>

#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

namespace {

using namespace VextorJSConfig;

constexpr long kSamples = 20;

// Resident set in bytes, from /proc/self/statm (its second field, in pages).
long ResidentBytes() {
    std::ifstream statm("/proc/self/statm");
    long size = 0;
    long resident = 0;
    statm >> size >> resident;
    return resident * sysconf(_SC_PAGESIZE);
}

std::string ReadFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
}

void Fail(const char* what, long cycle) {
    std::fprintf(stderr, "cycle %ld: %s failed\n", cycle, what);
    std::exit(1);
}

struct Paths {
    std::wstring imported;  // a private copy of the sample, for the file imports
    std::wstring saved;
};

// One whole-document cycle, importing from the text or from the file.
void RunCycle(const std::string& text, const Paths& paths, bool fromFile, long cycle) {
    IJSONManager* manager = zeltCreateJSONManager(nullptr, 0);
    std::unique_ptr<IVextorJSConfig> tree(VextorJSConfig_CreateNewInstance());
    const int imported =
        fromFile ? manager->ImportFromJSONFile(paths.imported.c_str())
                 : manager->ImportFromJSONString(text.c_str(), static_cast<int>(text.size()));
    if (imported != ZELT_SUCCESS) Fail("import", cycle);
    if (tree->ReadFromJSONMgr(manager, manager->GetRootElement()) != ZELT_SUCCESS)
        Fail("read", cycle);
    if (tree->WriteToJSONMgr(manager, nullptr, 1) != ZELT_SUCCESS) Fail("write", cycle);
    if (manager->SaveToJSONFile(paths.saved.c_str()) != ZELT_SUCCESS) Fail("save", cycle);
    zeltDestroyJSONManager(manager);
}

struct Growth {
    long warmedUp;  // resident bytes after the warm-up
    long highest;   // the highest sample after it
};

// The cycles before the first sample: a tenth, but in a short run up to
// 10,000 (at most half), since the heap settles over the first thousands.
long WarmUpCycles(long cycles) { return std::max(cycles / 10, std::min(cycles / 2, 10000L)); }

// Runs the cycles and prints the samples after the warm-up.
Growth Soak(const char* name, long cycles, const std::string& text, const Paths& paths,
            bool fromFile) {
    const long warmUp = WarmUpCycles(cycles);
    const long every = (cycles - warmUp) / kSamples > 0 ? (cycles - warmUp) / kSamples : 1;
    Growth growth{0, 0};
    std::printf("%s: %ld cycles, %ld of them warm-up; resident set in KiB:\n", name, cycles,
                warmUp);
    for (long cycle = 0; cycle < cycles; ++cycle) {
        if (cycle == warmUp) growth.warmedUp = growth.highest = ResidentBytes();
        RunCycle(text, paths, fromFile, cycle);
        if (cycle >= warmUp && ((cycle + 1 - warmUp) % every == 0 || cycle + 1 == cycles)) {
            const long resident = ResidentBytes();
            if (resident > growth.highest) growth.highest = resident;
            std::printf("  after %8ld cycles: %8ld\n", cycle + 1, resident / 1024);
            std::fflush(stdout);  // a long run shows its progress
        }
    }
    return growth;
}

// The bytes one kept read buffer of a file of this size takes in the heap:
// the block the allocator gives for size + 1 bytes, with its header.
long KeptBlockBytes(std::size_t fileSize) {
    void* block = std::malloc(fileSize + 1);
    const long bytes = static_cast<long>(malloc_usable_size(block) + sizeof(std::size_t));
    std::free(block);
    return bytes;
}

bool CheckTextRun(const Growth& growth) {
    const double percent = 100.0 * (growth.highest - growth.warmedUp) / growth.warmedUp;
    std::printf("text imports: %ld KiB after warm-up, highest %ld KiB: %+.3f %% (limit 1 %%)\n",
                growth.warmedUp / 1024, growth.highest / 1024, percent);
    return percent < 1.0;
}

bool CheckFileRun(const Growth& growth, long imports, std::size_t fileSize) {
    const long kept = imports * KeptBlockBytes(fileSize);
    const long grown = growth.highest - growth.warmedUp;
    const double percent = 100.0 * (grown - kept) / (growth.warmedUp + kept);
    std::printf(
        "file imports: grew %ld KiB over %ld imports; kept buffers %ld KiB (%zu + 1 "
        "bytes each, %ld with the heap's header); beyond them %+.3f %% (limit 1 %%)\n",
        grown / 1024, imports, kept / 1024, fileSize, KeptBlockBytes(fileSize), percent);
    return percent < 1.0 && percent > -1.0;
}

}  // namespace

int main(int argc, char** argv) {
    const long textCycles = argc > 1 ? std::atol(argv[1]) : 1000000;
    const long fileCycles = argc > 2 ? std::atol(argv[2]) : 100000;
    if (textCycles < 10 || fileCycles < 10) {
        std::fprintf(stderr, "usage: %s [TEXT_CYCLES [FILE_CYCLES]], each at least 10\n", argv[0]);
        return 2;
    }
    const std::string text = ReadFile(ZELT_SAMPLE_PATH);
    const std::string prefix = "/tmp/zelt-soak-" + std::to_string(getpid());
    const std::string imported = prefix + "-imported.json";
    const std::string saved = prefix + "-saved.json";
    std::ofstream(imported, std::ios::binary) << text;
    const Paths paths{std::wstring(imported.begin(), imported.end()),
                      std::wstring(saved.begin(), saved.end())};

    const bool textFlat = CheckTextRun(Soak("text imports", textCycles, text, paths, false));
    const Growth fileGrowth = Soak("file imports", fileCycles, text, paths, true);
    const long fileImportsMeasured = fileCycles - WarmUpCycles(fileCycles);
    const bool fileKeepsOnlyBuffers = CheckFileRun(fileGrowth, fileImportsMeasured, text.size());
    std::remove(imported.c_str());
    std::remove(saved.c_str());
    return textFlat && fileKeepsOnlyBuffers ? 0 : 1;
}
