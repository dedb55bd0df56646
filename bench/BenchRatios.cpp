#include "bench/BenchRatios.h"

#include "bench/AllocationCount.h"

#include <cstdio>

namespace {

constexpr int CountedCalls = 1000;

const char Repetitions[] = "--benchmark_repetitions=15";
const char InTurns[] = "--benchmark_enable_random_interleaving=true";
const char ShortRuns[] = "--benchmark_min_time=0.02";

std::string oursOf(const std::string &name)
{
    return name + "/ours";
}

std::string plainOf(const std::string &name)
{
    return name + "/plain";
}

// "12.3 us" of seconds.
std::string timeText(double seconds)
{
    const char *unit = "s";
    if (seconds < 1e-6) {
        seconds *= 1e9;
        unit = "ns";
    } else if (seconds < 1e-3) {
        seconds *= 1e6;
        unit = "us";
    } else if (seconds < 1.0) {
        seconds *= 1e3;
        unit = "ms";
    }
    char text[32];
    std::snprintf(text, sizeof text, "%.3g %s", seconds, unit);
    return text;
}

std::string numberText(double number)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.2f", number);
    return text;
}

void printRow(const std::string &name, const std::string &ours, const std::string &plain,
              const std::string &ratio, const std::string &limit, const std::string &allocations,
              const std::string &hostCalls)
{
    std::printf("%-34s %10s %10s %7s %7s %12s %11s\n", name.c_str(), ours.c_str(), plain.c_str(),
                ratio.c_str(), limit.c_str(), allocations.c_str(), hostCalls.c_str());
}

}

/// Keeps the medians and prints nothing but failures.
class BenchRatios::Reporter : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context &) override { return true; }

    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            if (run.error_occurred) {
                std::fprintf(stderr, "%s: %s\n", run.benchmark_name().c_str(),
                             run.error_message.c_str());
                failed = true;
            } else if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median") {
                medians[run.run_name.function_name] =
                    run.GetAdjustedRealTime() / benchmark::GetTimeUnitMultiplier(run.time_unit);
            }
        }
    }

    std::map<std::string, double> medians; ///< seconds
    bool failed = false;
};

void BenchRatios::add(const std::string &name, double limit, const Body &ours, const Body &plain)
{
    m_pairs.push_back({name, limit});
    benchmark::RegisterBenchmark(oursOf(name).c_str(), ours)->UseRealTime();
    benchmark::RegisterBenchmark(plainOf(name).c_str(), plain)->UseRealTime();
}

void BenchRatios::addTimedByItself(const std::string &name, double limit, const Body &ours,
                                   const Body &plain)
{
    m_pairs.push_back({name, limit});
    benchmark::RegisterBenchmark(oursOf(name).c_str(), ours)->UseManualTime();
    benchmark::RegisterBenchmark(plainOf(name).c_str(), plain)->UseManualTime();
}

void BenchRatios::countCalls(const std::string &name, const SmallCall &call)
{
    m_smallCalls[name] = call;
}

int BenchRatios::run(int argc, char **argv)
{
    // Flags of the command line come later and win.
    std::vector<std::string> texts = {argv[0], Repetitions, InTurns, ShortRuns};
    texts.insert(texts.end(), argv + 1, argv + argc);
    std::vector<char *> arguments;
    for (std::string &text : texts)
        arguments.push_back(text.data());
    int count = int(arguments.size());
    arguments.push_back(nullptr);
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
        return 1;

    Reporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);

    printRow("", "ours", "plain", "ratio", "limit", "allocations", "host calls");
    for (const Pair &pair : m_pairs) {
        const auto ours = reporter.medians.find(oursOf(pair.name));
        const auto plain = reporter.medians.find(plainOf(pair.name));
        if (ours == reporter.medians.end() || plain == reporter.medians.end())
            continue;
        const double ratio = ours->second / plain->second;
        std::string limit = pair.limit > 0 ? numberText(pair.limit) : "-";
        std::string allocations = "-";
        std::string hostCalls = "-";
        const auto small = m_smallCalls.find(pair.name);
        if (small != m_smallCalls.end()) {
            small->second.call();
            const int callsBefore = small->second.hostCalls();
            const long allocationsBefore = AllocationCount::total();
            for (int i = 0; i < CountedCalls; ++i)
                small->second.call();
            const long allocated = AllocationCount::total() - allocationsBefore;
            const int called = small->second.hostCalls() - callsBefore;
            allocations = numberText(double(allocated) / CountedCalls);
            hostCalls = numberText(double(called) / CountedCalls);
        }
        if (pair.limit > 0 && ratio > pair.limit)
            limit += " !";
        printRow(pair.name, timeText(ours->second), timeText(plain->second), numberText(ratio),
                 limit, allocations, hostCalls);
    }
    return reporter.failed ? 1 : 0;
}
