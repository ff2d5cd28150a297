#include "MemoryProbe.h"

#include "ArticleMaker.h"
#include "Report.h"

#include "model/ArticleDocument.h"

#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <limits>

namespace quillon::bench {

namespace {

constexpr std::string_view probeOption = "--peak-of-opening";

/// The highest resident size of this process so far, in bytes.
long peakBytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmHWM:")) {
            return std::stol(line.substr(6)) * 1024;
        }
    }
    return 0;
}

double peakOverJson() {
    const std::string json = makeArticle(10'000, ArticleShape::mixed);
    const auto path = std::filesystem::temp_directory_path() / ("quillon-bench-" + std::to_string(getpid()));
    std::ofstream(path, std::ios::binary) << json;
    const double peak = peakOfOpening(path);
    std::filesystem::remove(path);
    return peak / static_cast<double>(json.size());
}

const Figure memory{"open 10,000 components: peak memory / JSON bytes", peakOverJson, 4};

} // namespace

double peakOfOpening(const std::string& path) {
    const std::string command = std::filesystem::read_symlink("/proc/self/exe").string() + " " +
                                std::string(probeOption) + " " + path;
    FILE* child = popen(command.c_str(), "r");
    double bytes = std::numeric_limits<double>::infinity();
    if (child && std::fscanf(child, "%lf", &bytes) != 1) {
        bytes = std::numeric_limits<double>::infinity();
    }
    return child && pclose(child) == 0 ? bytes : std::numeric_limits<double>::infinity();
}

std::optional<int> runAsMemoryProbe(int argc, char** argv) {
    if (argc != 3 || argv[1] != probeOption) {
        return std::nullopt;
    }
    // The first article of a process builds its tables; they are not the article's.
    (void)sharedArticleDecoder.decode(makeArticle(20, ArticleShape::mixed));
    const long before = peakBytes();
    std::string json(std::filesystem::file_size(argv[2]), '\0');
    std::ifstream(argv[2], std::ios::binary).read(json.data(), static_cast<std::streamsize>(json.size()));
    const auto article = sharedArticleDecoder.decode(std::move(json));
    std::printf("%ld\n", peakBytes() - before);
    return article ? 0 : 1;
}

} // namespace quillon::bench
