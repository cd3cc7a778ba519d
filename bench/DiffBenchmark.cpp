// zeltcfg diff on two generated configurations that differ in about one list
// entry in a hundred, beside the load of the two that it follows.
#include "BenchmarkJobs.h"
#include "ConfigurationGenerator.h"
#include "JobTiming.h"

#include "ConfigurationDiff.h"
#include "ConfigurationModel.h"
#include "ConfigurationValue.h"

#include <benchmark/benchmark.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace zelt_bench {

namespace {

// The generated document of each size and the changed one, made once per
// process.
const std::pair<std::string, std::string>& Documents(std::size_t entries) {
    static std::map<std::size_t, std::pair<std::string, std::string>> documents;
    auto found = documents.find(entries);
    if (found == documents.end())
        found = documents
                    .emplace(entries, std::make_pair(GenerateConfiguration(entries),
                                                     GenerateChangedConfiguration(entries)))
                    .first;
    return found->second;
}

std::size_t Entries(const benchmark::State& state) {
    return static_cast<std::size_t>(state.range(0));
}

void DescribeBoth(benchmark::State& state) {
    const auto& documents = Documents(Entries(state));
    state.SetBytesProcessed(
        static_cast<std::int64_t>(state.iterations()) *
        static_cast<std::int64_t>(documents.first.size() + documents.second.size()));
}

// What diff does before it compares: import and read both documents.
void LoadBoth(benchmark::State& state) {
    const auto& documents = Documents(Entries(state));
    Configuration first, second;
    for (auto _ : state) {
        bool loaded = false;
        Timed(state,
              [&] { loaded = first.Load(documents.first) && second.Load(documents.second); });
        if (!loaded) state.SkipWithError("the configurations did not load");
        for (Configuration* configuration : {&first, &second}) {
            configuration->config->Clear();
            configuration->manager->ClearDocument();
        }
    }
    DescribeBoth(state);
}

// The comparison of the two loaded trees: both captured as values, then
// compared, or with compare false only captured, which shows the part of the
// comparison itself. What it built is released outside the clock, as in
// LoadBoth.
void CaptureAndCompare(benchmark::State& state, bool compare) {
    const auto& documents = Documents(Entries(state));
    Configuration first, second;
    if (!first.Load(documents.first) || !second.Load(documents.second))
        state.SkipWithError("the configurations did not load");
    std::size_t count = 0;
    for (auto _ : state) {
        zeltcfg::TextValue a, b;
        std::vector<zeltcfg::Difference> differences;
        Timed(state, [&] {
            a = zeltcfg::CaptureConfiguration(zeltcfg::BindConfiguration(*first.config));
            b = zeltcfg::CaptureConfiguration(zeltcfg::BindConfiguration(*second.config));
            if (compare) differences = zeltcfg::DiffConfigurationValues(a, b);
        });
        count = differences.size();
    }
    if (compare) state.counters["differences"] = static_cast<double>(count);
    DescribeBoth(state);
}

void DiffBoth(benchmark::State& state) { CaptureAndCompare(state, true); }

void CaptureBoth(benchmark::State& state) { CaptureAndCompare(state, false); }

}  // namespace

const std::vector<Job>& DiffJobs() {
    static const std::vector<Job> jobs = {
        {"LoadBoth", LoadBoth},
        {"CaptureBoth", CaptureBoth},
        {"DiffBoth", DiffBoth},
    };
    return jobs;
}

}  // namespace zelt_bench
