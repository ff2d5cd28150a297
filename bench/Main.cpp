#include "FreshProcess.h"
#include "Report.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <vector>

namespace quillon::bench {

namespace {

struct Line {
    std::string title;
    double atMost;
    std::string above; ///< of a ratio; empty for a figure
    std::string below;
    std::function<double()> measure;
};

std::vector<Line>& lines() {
    static std::vector<Line> all;
    return all;
}

/// Keeps the times of all repetitions and prints nothing.
class Collector : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.run_type == Run::RT_Iteration && !run.error_occurred) {
                m_seconds[run.run_name.function_name].push_back(run.GetAdjustedRealTime() * 1e-9);
            }
        }
    }

    bool has(const std::string& name) const { return m_seconds.contains(name); }
    double median(const std::string& name) const {
        std::vector<double> sorted = m_seconds.at(name);
        std::sort(sorted.begin(), sorted.end());
        return sorted[sorted.size() / 2];
    }
    void print() const {
        for (const auto& [name, seconds] : m_seconds) {
            std::printf("%-32s %12.3f us (median of %zu)\n", name.c_str(), median(name) * 1e6,
                        seconds.size());
        }
    }

private:
    std::map<std::string, std::vector<double>> m_seconds;
};

int run(int argc, char** argv) {
    // Repetitions of all benchmarks take turns, so that a slow moment of the machine hits both sides.
    std::vector<std::string> options = {argv[0], "--benchmark_repetitions=9", "--benchmark_min_time=0.05",
                                        "--benchmark_enable_random_interleaving=true"};
    options.insert(options.end(), argv + 1, argv + argc);
    std::vector<char*> pointers;
    for (std::string& option : options) {
        pointers.push_back(option.data());
    }
    int count = static_cast<int>(pointers.size());
    benchmark::Initialize(&count, pointers.data());
    if (benchmark::ReportUnrecognizedArguments(count, pointers.data())) {
        return 2;
    }
    Collector collector;
    benchmark::RunSpecifiedBenchmarks(&collector);
    collector.print();
    std::printf("\n");
    bool allHold = true;
    for (const Line& line : lines()) {
        if (!line.measure && (!collector.has(line.above) || !collector.has(line.below))) {
            continue; // left out by a filter
        }
        const double value =
            line.measure ? line.measure() : collector.median(line.above) / collector.median(line.below);
        const bool holds = value <= line.atMost;
        allHold = allHold && holds;
        std::printf("%s = %.4g (wanted at most %.4g)%s\n", line.title.c_str(), value, line.atMost,
                    holds ? "" : "  MISSED");
    }
    return allHold ? 0 : 1;
}

} // namespace

Ratio::Ratio(std::string title, std::string above, std::string below, double atMost) {
    lines().push_back({std::move(title), atMost, std::move(above), std::move(below), nullptr});
}

Figure::Figure(std::string title, std::function<double()> measure, double atMost) {
    lines().push_back({std::move(title), atMost, {}, {}, std::move(measure)});
}

} // namespace quillon::bench

int main(int argc, char** argv) {
    if (const auto status = quillon::bench::runAsFreshProcess(argc, argv)) {
        return *status;
    }
    return quillon::bench::run(argc, argv);
}
