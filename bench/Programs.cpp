#include "ArticleMaker.h"
#include "Report.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>
#include <vector>

#include <unistd.h>

/// Whole processes beside the tools that people would use instead.
namespace quillon::bench {

namespace {

namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

constexpr double missing = std::numeric_limits<double>::infinity();

/// A folder of its own, on a disk and not in memory, removed at the end.
class Scratch {
public:
    Scratch() : m_root(fs::current_path() / ("bench-scratch-" + std::to_string(getpid()))) {
        fs::create_directories(m_root);
    }
    ~Scratch() { fs::remove_all(m_root); }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    std::string path(const std::string& name) const { return m_root / name; }

private:
    fs::path m_root;
};

void write(const std::string& path, const std::string& bytes) {
    fs::create_directories(fs::path(path).parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
}

/// The time of a shell command in seconds, infinite when it fails.
double timeOf(const std::string& command) {
    const auto start = Clock::now();
    const bool succeeded = std::system(command.c_str()) == 0;
    return succeeded ? std::chrono::duration<double>(Clock::now() - start).count() : missing;
}

/// The median of the times of `ours` divided by that of `theirs`, the runs taking turns. `reset` runs before
/// each.
double ratioOf(const std::string& ours, const std::string& theirs, const std::string& reset = "true") {
    constexpr int runs = 7;
    std::vector<double> our;
    std::vector<double> their;
    for (int run = 0; run < runs; ++run) {
        timeOf(reset);
        our.push_back(timeOf(ours));
        timeOf(reset);
        their.push_back(timeOf(theirs));
    }
    std::sort(our.begin(), our.end());
    std::sort(their.begin(), their.end());
    return our[runs / 2] / their[runs / 2];
}

double formatBesideJq() {
    const Scratch scratch;
    const std::string article = scratch.path("article-of-5-MB.json");
    write(article, makeArticle(10'000, ArticleShape::mixed));
    return ratioOf(std::string(QUILLON_CLI) + " format " + article + " > " + scratch.path("ours"),
                   "jq -S . " + article + " > " + scratch.path("theirs"));
}

double saveBesideCopy() {
    const Scratch scratch;
    const std::string package = scratch.path("package");
    write(package + "/article.json", makeArticle(100, ArticleShape::mixed));
    const std::string megabyte(1'000'000, 'x');
    for (int asset = 0; asset < 200; ++asset) {
        write(package + "/images/" + std::to_string(asset) + ".jpg", megabyte);
    }
    // What is measured is a save, so the reading of the package is taken off: `check` does nothing else.
    std::vector<double> ours;
    std::vector<double> copies;
    for (int run = 0; run < 5; ++run) {
        const double opening =
            timeOf(std::string(QUILLON_CLI) + " check " + package + " > " + scratch.path("out"));
        ours.push_back(timeOf(std::string(QUILLON_CLI) + " save " + package) - opening);
        copies.push_back(timeOf("cp -r " + package + " " + scratch.path("copy")));
        timeOf("rm -r " + scratch.path("copy"));
    }
    std::sort(ours.begin(), ours.end());
    std::sort(copies.begin(), copies.end());
    return ours[2] / copies[2];
}

const Figure formatting{"format of a 5 MB article, whole process: / jq -S .", formatBesideJq, 0.2};
const Figure saving{"save with 200 MB of unchanged assets: / cp -r", saveBesideCopy, 0.1};

} // namespace

} // namespace quillon::bench
