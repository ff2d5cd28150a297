#pragma once

#include <functional>
#include <string>

/// The report of a run: plain lines of figures beside what is wanted of them. A subject registers its lines
/// from static objects of its own source file:
///
///     const quillon::bench::Ratio line{"read: ours / nlohmann", "read/ours", "read/nlohmann", 0.5};
namespace quillon::bench {

/// A line that divides the median times of two benchmarks of this run.
struct Ratio {
    Ratio(std::string title, std::string above, std::string below, double atMost);
};

/// A line for a figure of any other kind, measured once.
struct Figure {
    Figure(std::string title, std::function<double()> measure, double atMost);
};

} // namespace quillon::bench
