#include "FreshProcess.h"

#include "model/ArticleDocument.h"

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <limits>

namespace quillon::bench {

namespace {

constexpr std::string_view option = "--open-once";

/// The highest resident size of this process so far, in bytes.
double peakBytes() {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmHWM:")) {
            return std::stod(line.substr(6)) * 1024;
        }
    }
    return 0;
}

} // namespace

Opening openInFreshProcess(const std::string& path) {
    const std::string self = std::filesystem::read_symlink("/proc/self/exe");
    FILE* child = popen((self + " " + std::string(option) + " " + path).c_str(), "r");
    Opening opening;
    const bool isRead = child && std::fscanf(child, "%lf %lf", &opening.seconds, &opening.peakBytes) == 2;
    if (!child || pclose(child) != 0 || !isRead) {
        constexpr double infinity = std::numeric_limits<double>::infinity();
        return {infinity, infinity};
    }
    return opening;
}

std::optional<int> runAsFreshProcess(int argc, char** argv) {
    if (argc != 3 || argv[1] != option) {
        return std::nullopt;
    }
    const double before = peakBytes();
    std::string json(std::filesystem::file_size(argv[2]), '\0');
    std::ifstream(argv[2], std::ios::binary).read(json.data(), static_cast<std::streamsize>(json.size()));
    const auto start = std::chrono::steady_clock::now();
    const auto article = sharedArticleDecoder.decode(std::move(json));
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
    std::printf("%.9f %.0f\n", passed.count(), peakBytes() - before);
    return article ? 0 : 1;
}

} // namespace quillon::bench
