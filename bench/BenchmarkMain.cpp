// The benchmark program: Google Benchmark's usual flags, plus
// --sizes=0,1000,... to choose the documents (entries per string list) of
// the whole-configuration jobs and --clock=wall to time them by the wall
// clock rather than the thread's processor time. After the run it prints the library's times
// as ratios to json-c's in the same run, beside their targets; it never
// fails on them.
#include "BenchmarkJobs.h"

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace {

using benchmark::BenchmarkReporter;

// Shows the runs through the display chosen by --benchmark_format and keeps
// each run's time: the median where repetitions give one, else the fastest.
class RecordingReporter : public BenchmarkReporter {
public:
    explicit RecordingReporter(std::unique_ptr<BenchmarkReporter> display)
        : display_(std::move(display)) {}

    bool ReportContext(const Context& context) override { return display_->ReportContext(context); }
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) Record(run);
        display_->ReportRuns(runs);
    }
    void Finalize() override { display_->Finalize(); }

    const zelt_bench::Timings& Timings() const { return timings_; }
    // Whether a job was timed on fewer than three iterations, without
    // repetitions to take a median of.
    bool ShortRun() const { return shortRun_; }

private:
    void Record(const Run& run) {
        const bool median = run.run_type == Run::RT_Aggregate && run.aggregate_name == "median";
        if (run.error_occurred || (run.run_type == Run::RT_Aggregate && !median)) return;
        if (!median && run.repetitions <= 1 && run.iterations < 3) shortRun_ = true;
        const auto key = std::make_pair(run.run_name.function_name,
                                        static_cast<std::size_t>(std::stoull(run.run_name.args)));
        const double seconds =
            run.GetAdjustedRealTime() / benchmark::GetTimeUnitMultiplier(run.time_unit);
        auto found = timings_.find(key);
        if (median) {
            timings_[key] = seconds;
            medians_[key] = true;
        } else if (found == timings_.end() || (!medians_[key] && seconds < found->second)) {
            timings_[key] = seconds;
        }
    }

    std::unique_ptr<BenchmarkReporter> display_;
    zelt_bench::Timings timings_;
    std::map<std::pair<std::string, std::size_t>, bool> medians_;
    bool shortRun_ = false;
};

std::unique_ptr<BenchmarkReporter> MakeDisplay(const std::string& format) {
    if (format == "json") return std::make_unique<benchmark::JSONReporter>();
    return std::make_unique<benchmark::ConsoleReporter>(
        isatty(STDOUT_FILENO) ? benchmark::ConsoleReporter::OO_ColorTabular
                              : benchmark::ConsoleReporter::OO_Tabular);
}

// Takes --name=value out of the arguments; false when it is not there.
bool TakeOption(int& argc, char** argv, const char* name, std::string& value) {
    const std::string prefix = std::string("--") + name + "=";
    for (int i = 1; i < argc; ++i) {
        if (std::strncmp(argv[i], prefix.c_str(), prefix.size()) != 0) continue;
        value = argv[i] + prefix.size();
        for (int j = i; j < argc; ++j) argv[j] = argv[j + 1];
        --argc;
        return true;
    }
    return false;
}

std::vector<std::size_t> ParseSizes(const std::string& list) {
    std::vector<std::size_t> sizes;
    for (std::size_t start = 0; start < list.size();) {
        std::size_t end = list.find(',', start);
        if (end == std::string::npos) end = list.size();
        sizes.push_back(std::stoull(list.substr(start, end - start)));
        start = end + 1;
    }
    return sizes;
}

}  // namespace

int main(int argc, char** argv) {
    std::string format = "console", sizeList = "0,1000,100000,1000000";
    for (int i = 1; i < argc; ++i)
        if (std::strncmp(argv[i], "--benchmark_format=", 19) == 0) format = argv[i] + 19;
    std::string clock = "cpu";
    TakeOption(argc, argv, "sizes", sizeList);
    TakeOption(argc, argv, "clock", clock);
    zelt_bench::UseWallClock(clock == "wall");
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;

    std::vector<zelt_bench::Job> jobs = zelt_bench::ConfigurationJobs();
#ifdef ZELT_BENCH_DIFF
    jobs.insert(jobs.end(), zelt_bench::DiffJobs().begin(), zelt_bench::DiffJobs().end());
#endif
    for (const zelt_bench::Job& job : jobs)
        for (std::size_t entries : ParseSizes(sizeList))
            benchmark::RegisterBenchmark(job.name, job.run)
                ->Arg(static_cast<std::int64_t>(entries))
                ->UseManualTime()
                ->Unit(entries >= 100000 ? benchmark::kMillisecond : benchmark::kMicrosecond);

    RecordingReporter reporter(MakeDisplay(format));
    benchmark::RunSpecifiedBenchmarks(&reporter);
    // Machine-readable output on standard output stays as it is.
    zelt_bench::PrintRatios(reporter.Timings(), reporter.ShortRun(),
                            format == "console" ? stdout : stderr);
    benchmark::Shutdown();
    return 0;
}
