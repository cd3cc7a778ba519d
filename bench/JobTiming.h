// JobTiming.h: the clock of the benchmark jobs, and the configuration that
// the whole-configuration jobs load.
#ifndef ZELT_BENCH_JOBTIMING_H
#define ZELT_BENCH_JOBTIMING_H

#include <zelt/zelt.h>

#include <benchmark/benchmark.h>

#include <string>

namespace zelt_bench {

// The thread's processor time in seconds, user and system: on a shared
// machine other processes lengthen the wall clock but not this. The wall
// clock instead after UseWallClock(true).
double Now();

// Runs job and records its duration as the iteration's time.
template <class Job>
void Timed(benchmark::State& state, Job job) {
    const double start = Now();
    job();
    state.SetIterationTime(Now() - start);
}

// A manager and a root element, with the document loaded when asked.
struct Configuration {
    IJSONManager* manager = zeltCreateJSONManager(nullptr, 0);
    VextorJSConfig::IVextorJSConfig* config = VextorJSConfig::VextorJSConfig_CreateNewInstance();

    Configuration() = default;
    Configuration(const Configuration&) = delete;
    Configuration& operator=(const Configuration&) = delete;
    ~Configuration() {
        delete config;
        zeltDestroyJSONManager(manager);
    }
    bool Import(const std::string& text) {
        return manager->ImportFromJSONString(text.data(), static_cast<int>(text.size())) ==
               ZELT_SUCCESS;
    }
    bool Read() { return config->ReadFromJSONMgr(manager, manager->GetRootElement()) == 1; }
    bool Load(const std::string& text) { return Import(text) && Read(); }
    bool Write() { return config->WriteToJSONMgr(manager, nullptr, 1) == ZELT_SUCCESS; }
};

}  // namespace zelt_bench

#endif  // ZELT_BENCH_JOBTIMING_H
