#include "BenchmarkJobs.h"

#include <cstdio>
#include <set>

namespace zelt_bench {

namespace {

constexpr std::size_t kSmall = 1000;
constexpr std::size_t kLarge = 1000000;

// A ratio of two jobs' times on one size; negative when either did not run.
double Ratio(const Timings& timings, const char* job, const char* baseline, std::size_t entries) {
    const auto a = timings.find({job, entries});
    const auto b = timings.find({baseline, entries});
    if (a == timings.end() || b == timings.end() || b->second <= 0) return -1;
    return a->second / b->second;
}

void PrintRatio(std::FILE* out, double ratio, int width) {
    if (ratio < 0)
        std::fprintf(out, "%*s", width, "-");
    else
        std::fprintf(out, "%*.2fx", width - 1, ratio);
}

// The time per list entry at kLarge against that at kSmall.
double Scaling(const Timings& timings, const char* job) {
    const auto small = timings.find({job, kSmall});
    const auto large = timings.find({job, kLarge});
    if (small == timings.end() || large == timings.end() || small->second <= 0) return -1;
    return (large->second / kLarge) / (small->second / kSmall);
}

// A ratio job / baseline of times; the serializer's is put the other way
// round, as a ratio of throughputs.
struct Target {
    const char* what;
    const char* job;
    const char* baseline;
    double bound;
    bool atMost;
};

const Target kTargets[] = {
    {"whole load / json-c parse + free", "WholeLoad", "JsoncParseAndFree", 1.5, true},
    {"serializer throughput / json-c's", "JsoncSerialize", "Serialize", 2.0, false},
    {"write + save / json-c parse", "WriteAndSave", "JsoncParse", 1.0, true},
    {"zeltcfg diff / load of the two", "DiffBoth", "LoadBoth", 2.0, true},
};

const char* const kScaledJobs[] = {"JsoncParse", "JsoncParseAndFree", "JsoncParseAndStore",
                                   "WholeLoad",  "Destruction",       "WriteAndSave",
                                   "Serialize",  "JsoncSerialize",    "ImportFile"};

void PrintVerdict(std::FILE* out, double value, double bound, bool atMost) {
    if (value < 0) return;
    const bool met = atMost ? value <= bound : value >= bound;
    std::fprintf(out, " %-6s", met ? "met" : "missed");
}

}  // namespace

void PrintRatios(const Timings& timings, bool shortRun, std::FILE* out) {
    std::set<std::size_t> sizes;
    for (const auto& timing : timings)
        if (timing.first.first == "JsoncParse") sizes.insert(timing.first.second);
    if (sizes.empty()) return;

    std::fprintf(out, "\nRatios to json-c on the same document in this run:\n%10s", "entries");
    for (const Target& target : kTargets) std::fprintf(out, " | %-33s", target.what);
    std::fprintf(out, "\n");
    for (std::size_t entries : sizes) {
        std::fprintf(out, "%10zu", entries);
        for (const Target& target : kTargets) {
            const double ratio = Ratio(timings, target.job, target.baseline, entries);
            std::fprintf(out, " | ");
            PrintRatio(out, ratio, 26);
            if (entries >= 100000 && ratio >= 0 && !shortRun)
                PrintVerdict(out, ratio, target.bound, target.atMost);
            else
                std::fprintf(out, "%7s", "");
        }
        std::fprintf(out, "\n");
    }
    std::fprintf(out,
                 "Targets at 100000 and 1000000 entries: whole load <= 1.5x, serializer >= "
                 "2x, write + save <= 1.0x, diff <= 2x.\n");
    if (shortRun)
        std::fprintf(out,
                     "A short run, judged by no target: some jobs ran fewer than three "
                     "iterations.\n");

    bool scaled = false;
    for (const char* job : kScaledJobs) {
        const double scaling = Scaling(timings, job);
        if (scaling < 0) continue;
        if (!scaled)
            std::fprintf(out, "\nTime per list entry at %zu entries / at %zu (target <= 1.3x):\n",
                         kLarge, kSmall);
        scaled = true;
        std::fprintf(out, "%24s", job);
        PrintRatio(out, scaling, 10);
        if (!shortRun) PrintVerdict(out, scaling, 1.3, true);
        std::fprintf(out, "\n");
    }
}

}  // namespace zelt_bench
