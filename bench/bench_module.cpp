#include "bench/BenchRatios.h"

#include <cstdio>
#include <cstdlib>

namespace {

// Seconds that a process of its own needs for the given work; negative when it failed.
double secondsOf(const std::string &arguments)
{
    const std::string command = "'" LOAD_CHILD "' " + arguments;
    FILE *child = popen(command.c_str(), "r");
    if (!child)
        return -1.0;
    long long nanoseconds = -1;
    const bool read = std::fscanf(child, "%lld", &nanoseconds) == 1;
    const bool ended = pclose(child) == 0;
    return read && ended ? double(nanoseconds) * 1e-9 : -1.0;
}

BenchRatios::Body timing(const std::string &arguments)
{
    return [arguments](benchmark::State &state) {
        for (auto _ : state) {
            const double seconds = secondsOf(arguments);
            if (seconds < 0.0) {
                state.SkipWithError("the loading process failed");
                return;
            }
            state.SetIterationTime(seconds);
        }
    };
}

}

int main(int argc, char **argv)
{
    const std::string dependencies = MODULE_DEPENDENCIES;
    const std::string tool = dependencies + " --tool '" MODULE "'";
    BenchRatios ratios;
    ratios.addTimedByItself("module load to first tool", 0, timing(tool), timing(dependencies));
    return ratios.run(argc, argv);
}
