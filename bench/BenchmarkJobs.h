// BenchmarkJobs.h: the benchmark program's jobs, registered by its main once
// per document size, and the report of their ratios to json-c.
#ifndef ZELT_BENCH_BENCHMARKJOBS_H
#define ZELT_BENCH_BENCHMARKJOBS_H

#include <benchmark/benchmark.h>

#include <cstddef>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace zelt_bench {

// One benchmark, run on the generated document of state.range(0) entries
// per string list.
struct Job {
    const char* name;
    void (*run)(benchmark::State& state);
};

// The whole-configuration jobs of the library and json-c's counterparts.
const std::vector<Job>& ConfigurationJobs();

// The jobs of zeltcfg diff: the load of two documents that differ in about
// one list entry in a hundred, and the comparison of the loaded trees. Built
// with the tool only (ZELT_BENCH_DIFF).
const std::vector<Job>& DiffJobs();

// Times the jobs by the wall clock instead of the thread's processor time.
void UseWallClock(bool wallClock);

// Seconds per iteration of each job and size that ran.
using Timings = std::map<std::pair<std::string, std::size_t>, double>;

// Prints the ratios of the library's jobs to json-c's, and the targets. A
// short run (a job timed on fewer than three iterations) gets no verdicts:
// its first iterations start from a fresh heap, unlike the steady state.
void PrintRatios(const Timings& timings, bool shortRun, std::FILE* out);

}  // namespace zelt_bench

#endif  // ZELT_BENCH_BENCHMARKJOBS_H
