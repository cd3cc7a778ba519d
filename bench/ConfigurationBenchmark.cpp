// The library's whole-configuration jobs beside json-c's own parse and
// serializer on the same bytes, in the same process and run, for generated
// documents of 0, 1,000, 100,000 and 1,000,000 entries per string list.
//
// Every benchmark times only its own job (manual time), by default in the
// thread's processor time: the preparation of each iteration and the release
// of what it built are outside the clock, and timed by their own benchmarks
// where they are a job of their own.
#include "BenchmarkJobs.h"
#include "ConfigurationGenerator.h"
#include "JobTiming.h"
#include "manager/JSONWriter.h"

#include <zelt/zelt.h>

#include <benchmark/benchmark.h>
#include <json-c/json.h>
#include <time.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace zelt_bench {

namespace {

using VextorJSConfig::IVextorJSConfig;

// The generated document of each size, made once per process.
const std::string& Document(std::size_t entries) {
    static std::map<std::size_t, std::string> documents;
    auto found = documents.find(entries);
    if (found == documents.end())
        found = documents.emplace(entries, GenerateConfiguration(entries)).first;
    return found->second;
}

std::size_t Entries(const benchmark::State& state) {
    return static_cast<std::size_t>(state.range(0));
}

int Length(const std::string& text) { return static_cast<int>(text.size()); }

json_object* AsJSON(JSONNode* node) { return reinterpret_cast<json_object*>(node); }

// A file under /tmp that belongs to this process, removed at the end.
class TemporaryFile {
public:
    explicit TemporaryFile(const char* job)
        : path_("/tmp/zelt-bench-" + std::to_string(getpid()) + "-" + job + ".json"),
          widePath_(path_.begin(), path_.end()) {}
    ~TemporaryFile() { std::remove(path_.c_str()); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    const wchar_t* WidePath() const { return widePath_.c_str(); }
    std::string Read() const {
        std::ifstream in(path_, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    }
    void Write(const std::string& bytes) const {
        std::ofstream(path_, std::ios::binary).write(bytes.data(), Length(bytes));
    }

private:
    std::string path_;
    std::wstring widePath_;
};

// Document bytes per second, and the time per list entry where there are any.
void Describe(benchmark::State& state) {
    const std::string& text = Document(Entries(state));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(text.size()));
    const double listEntries = static_cast<double>(Entries(state) * kStringListCount);
    if (listEntries > 0)
        state.counters["per_entry"] =
            benchmark::Counter(listEntries, benchmark::Counter::kIsIterationInvariantRate |
                                                benchmark::Counter::kInvert);
}

// json-c ---------------------------------------------------------------------

void JsoncParse(benchmark::State& state) {
    const std::string& text = Document(Entries(state));
    for (auto _ : state) {
        json_object* root = nullptr;
        Timed(state, [&] { root = json_tokener_parse(text.c_str()); });
        if (root == nullptr) state.SkipWithError("json-c did not parse the document");
        json_object_put(root);
    }
    Describe(state);
}

void JsoncParseAndFree(benchmark::State& state) {
    const std::string& text = Document(Entries(state));
    for (auto _ : state) Timed(state, [&] { json_object_put(json_tokener_parse(text.c_str())); });
    Describe(state);
}

// What a typed load cannot do without: json-c's parse, then every list
// string converted to wide text and stored in an object of its own, as the
// typed tree stores it. Both are released outside the clock, as in WholeLoad.
struct StoredString {
    virtual ~StoredString() = default;
    std::wstring text;
};

// Decodes valid UTF-8, as the generated documents are.
void AssignWide(const char* utf8, std::size_t length, std::wstring& out) {
    out.resize(length);
    std::size_t units = 0;
    for (const auto* p = reinterpret_cast<const unsigned char*>(utf8); *p != 0; ++units) {
        const int trailing = *p < 0x80 ? 0 : *p < 0xE0 ? 1 : *p < 0xF0 ? 2 : 3;
        char32_t c = trailing == 0 ? *p : *p & (0x3F >> trailing);
        for (++p; trailing > 0 && (*p & 0xC0) == 0x80; ++p) c = (c << 6) | (*p & 0x3F);
        out[units] = static_cast<wchar_t>(c);
    }
    out.resize(units);
}

void StoreStrings(json_object* root, std::vector<std::unique_ptr<StoredString>>& stored) {
    static const char* const kPaths[][3] = {{"AdvancedRule", "EnforceList", "IPList"},
                                            {"AdvancedRule", "WhiteList", "IPList"},
                                            {"AdvancedRule", "WhiteList", "VPNDescList"},
                                            {"ContentUploadChannel", "ClientRequestHeaders", ""}};
    for (const auto& path : kPaths) {
        json_object* node = root;
        for (const char* key : path)
            if (*key != '\0') node = json_object_object_get(node, key);
        const std::size_t count = json_object_array_length(node);
        for (std::size_t i = 0; i < count; ++i) {
            json_object* item = json_object_array_get_idx(node, i);
            auto entry = std::make_unique<StoredString>();
            AssignWide(json_object_get_string(item),
                       static_cast<std::size_t>(json_object_get_string_len(item)), entry->text);
            stored.push_back(std::move(entry));
        }
    }
}

void JsoncParseAndStore(benchmark::State& state) {
    const std::string& text = Document(Entries(state));
    std::vector<std::unique_ptr<StoredString>> stored;
    for (auto _ : state) {
        json_object* root = nullptr;
        Timed(state, [&] {
            root = json_tokener_parse(text.c_str());
            if (Entries(state) != 0) StoreStrings(root, stored);
        });
        stored.clear();
        json_object_put(root);
    }
    Describe(state);
}

// json-c's serializer on the tree the library imported. json-c keeps its
// output buffer in the root between calls, so only the first call grows it.
void JsoncSerialize(benchmark::State& state) {
    Configuration configuration;
    if (!configuration.Import(Document(Entries(state))))
        state.SkipWithError("the document did not import");
    json_object* root = AsJSON(configuration.manager->GetRootElement());
    for (auto _ : state)
        Timed(state, [&] {
            benchmark::DoNotOptimize(json_object_to_json_string_ext(root, JSON_C_TO_STRING_SPACED));
        });
    Describe(state);
}

// The library --------------------------------------------------------------

void Import(benchmark::State& state) {
    const std::string& text = Document(Entries(state));
    Configuration configuration;
    for (auto _ : state) {
        bool imported = false;
        Timed(state, [&] { imported = configuration.Import(text); });
        if (!imported) state.SkipWithError("the document did not import");
        configuration.manager->ClearDocument();
    }
    Describe(state);
}

void RootRead(benchmark::State& state) {
    Configuration configuration;
    if (!configuration.Import(Document(Entries(state))))
        state.SkipWithError("the document did not import");
    for (auto _ : state) {
        configuration.config->Clear();
        bool read = false;
        Timed(state, [&] { read = configuration.Read(); });
        if (!read) state.SkipWithError("the configuration did not read");
    }
    Describe(state);
}

void WholeLoad(benchmark::State& state) {
    const std::string& text = Document(Entries(state));
    Configuration configuration;
    for (auto _ : state) {
        bool loaded = false;
        Timed(state, [&] { loaded = configuration.Load(text); });
        if (!loaded) state.SkipWithError("the configuration did not load");
        configuration.config->Clear();
        configuration.manager->ClearDocument();
    }
    Describe(state);
}

// Both trees of a whole load, released as a caller releases them.
void Destruction(benchmark::State& state) {
    const std::string& text = Document(Entries(state));
    for (auto _ : state) {
        auto* configuration = new Configuration;
        if (!configuration->Load(text)) state.SkipWithError("the configuration did not load");
        Timed(state, [&] { delete configuration; });
    }
    Describe(state);
}

void WholeLoadAndDestruction(benchmark::State& state) {
    const std::string& text = Document(Entries(state));
    for (auto _ : state) {
        bool loaded = false;
        Timed(state, [&] {
            Configuration configuration;
            loaded = configuration.Load(text);
        });
        if (!loaded) state.SkipWithError("the configuration did not load");
    }
    Describe(state);
}

// The write starts a new document; the old one is released before the clock
// starts.
void RootWrite(benchmark::State& state) {
    Configuration configuration;
    if (!configuration.Load(Document(Entries(state))))
        state.SkipWithError("the configuration did not load");
    for (auto _ : state) {
        configuration.manager->ClearDocument();
        bool written = false;
        Timed(state, [&] { written = configuration.Write(); });
        if (!written) state.SkipWithError("the configuration did not write");
    }
    Describe(state);
}

// Saves the written document; the first save is checked to give back the
// generated bytes exactly.
void Save(benchmark::State& state) {
    const std::string& text = Document(Entries(state));
    Configuration configuration;
    TemporaryFile file("save");
    if (!configuration.Load(text) || !configuration.Write() ||
        configuration.manager->SaveToJSONFile(file.WidePath()) != ZELT_SUCCESS ||
        file.Read() != text)
        state.SkipWithError("the saved text differs from the document");
    for (auto _ : state) {
        int saved = 0;
        Timed(state, [&] { saved = configuration.manager->SaveToJSONFile(file.WidePath()); });
        if (saved != ZELT_SUCCESS) state.SkipWithError("the document did not save");
    }
    Describe(state);
}

void WriteAndSave(benchmark::State& state) {
    Configuration configuration;
    TemporaryFile file("write-save");
    if (!configuration.Load(Document(Entries(state))))
        state.SkipWithError("the configuration did not load");
    for (auto _ : state) {
        configuration.manager->ClearDocument();
        bool done = false;
        Timed(state, [&] {
            done = configuration.Write() &&
                   configuration.manager->SaveToJSONFile(file.WidePath()) == ZELT_SUCCESS;
        });
        if (!done) state.SkipWithError("the configuration did not write and save");
    }
    Describe(state);
}

// The library's serializer alone, on the tree that JsoncSerialize writes. As
// json-c keeps its buffer, the text goes into one buffer kept between
// iterations; a save makes a new one each time, and Save times that.
void Serialize(benchmark::State& state) {
    Configuration configuration;
    if (!configuration.Import(Document(Entries(state))))
        state.SkipWithError("the document did not import");
    json_object* root = AsJSON(configuration.manager->GetRootElement());
    JSONText text;
    for (auto _ : state) {
        text.Clear();
        Timed(state, [&] { AppendJSONText(root, text); });
        benchmark::DoNotOptimize(text.Data());
    }
    Describe(state);
}

// Each file import keeps its read buffer, as the library intends: the
// benchmark holds about one document's size per iteration until it exits.
void ImportFile(benchmark::State& state) {
    Configuration configuration;
    TemporaryFile file("import");
    file.Write(Document(Entries(state)));
    for (auto _ : state) {
        configuration.manager->ClearDocument();
        int imported = 0;
        Timed(state,
              [&] { imported = configuration.manager->ImportFromJSONFile(file.WidePath()); });
        if (imported != ZELT_SUCCESS) state.SkipWithError("the file did not import");
    }
    Describe(state);
}

bool useWallClock = false;

}  // namespace

void UseWallClock(bool wallClock) { useWallClock = wallClock; }

double Now() {
    if (useWallClock) {
        const auto sinceEpoch = std::chrono::steady_clock::now().time_since_epoch();
        return std::chrono::duration<double>(sinceEpoch).count();
    }
    timespec now;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

const std::vector<Job>& ConfigurationJobs() {
    static const std::vector<Job> jobs = {
        {"JsoncParse", JsoncParse},
        {"JsoncParseAndFree", JsoncParseAndFree},
        {"JsoncSerialize", JsoncSerialize},
        {"JsoncParseAndStore", JsoncParseAndStore},
        {"Import", Import},
        {"RootRead", RootRead},
        {"WholeLoad", WholeLoad},
        {"Destruction", Destruction},
        {"WholeLoadAndDestruction", WholeLoadAndDestruction},
        {"RootWrite", RootWrite},
        {"Save", Save},
        {"WriteAndSave", WriteAndSave},
        {"Serialize", Serialize},
        {"ImportFile", ImportFile},
    };
    return jobs;
}

}  // namespace zelt_bench
