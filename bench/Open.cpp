#include "ArticleMaker.h"
#include "FreshProcess.h"
#include "Report.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <vector>

/// Opening an article as a program does that has just started: time and memory.
namespace quillon::bench {

namespace {

/// A made article in a file that goes with the object.
class ArticleFile {
public:
    explicit ArticleFile(size_t components)
        : m_path(std::filesystem::temp_directory_path() /
                 ("quillon-bench-" + std::to_string(getpid()) + "-" + std::to_string(components))) {
        std::ofstream(m_path, std::ios::binary) << makeArticle(components, ArticleShape::mixed);
    }
    ~ArticleFile() { std::filesystem::remove(m_path); }
    ArticleFile(const ArticleFile&) = delete;
    ArticleFile& operator=(const ArticleFile&) = delete;

    const std::filesystem::path& path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

double peakOverJson() {
    const ArticleFile file(10'000);
    return openInFreshProcess(file.path()).peakBytes /
           static_cast<double>(std::filesystem::file_size(file.path()));
}

/// Within one process the smaller article would be read over and over out of the processor's cache, which is
/// not how anyone opens one.
double growthOfTime() {
    const ArticleFile small(1'000);
    const ArticleFile large(10'000);
    std::vector<double> smallSeconds;
    std::vector<double> largeSeconds;
    constexpr int repetitions = 15;
    for (int repetition = 0; repetition < repetitions; ++repetition) {
        smallSeconds.push_back(openInFreshProcess(small.path()).seconds);
        largeSeconds.push_back(openInFreshProcess(large.path()).seconds);
    }
    std::sort(smallSeconds.begin(), smallSeconds.end());
    std::sort(largeSeconds.begin(), largeSeconds.end());
    return largeSeconds[repetitions / 2] / smallSeconds[repetitions / 2];
}

const Figure memory{"open 10,000 components: peak memory / JSON bytes", peakOverJson, 4};
const Figure time{"open in a fresh process: 10,000 / 1,000 components", growthOfTime, 11};

} // namespace

} // namespace quillon::bench
