#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

/// Benchmarks of ours, each beside its plain alternative in the same run.
///
/// Both sides of every pair run in turns, several times, and the medians are compared. Behind the
/// run stands a table with one line per pair: name, our median, the plain one's, their ratio, the
/// limit of the ratio ("!" behind it: exceeded), and for small calls the allocations and host calls
/// of one call of ours.
class BenchRatios
{
public:
    using Body = std::function<void(benchmark::State &)>;

    /// One call of ours, and the host's calls so far.
    struct SmallCall
    {
        std::function<void()> call;
        std::function<int()> hostCalls;
    };

    /// `ours` and `plain` are benchmark bodies, looping over their state. `limit` is the largest
    /// ratio that is told as good; 0: there is none.
    void add(const std::string &name, double limit, const Body &ours, const Body &plain);

    /// The same for bodies that measure by themselves, with SetIterationTime().
    void addTimedByItself(const std::string &name, double limit, const Body &ours,
                          const Body &plain);

    /// Counts what one call of the pair of this name costs beside its time.
    void countCalls(const std::string &name, const SmallCall &call);

    /// Runs everything, then prints the table. 0, whatever was measured; 1 for a bad command line
    /// or a benchmark that could not run.
    int run(int argc, char **argv);

private:
    struct Pair
    {
        std::string name;
        double limit;
    };

    class Reporter;

    std::vector<Pair> m_pairs;
    std::map<std::string, SmallCall> m_smallCalls;
};
