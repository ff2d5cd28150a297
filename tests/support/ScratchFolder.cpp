#include "support/ScratchFolder.h"

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include <unistd.h>

namespace quillon::test {

namespace fs = std::filesystem;

namespace {

std::string contentsOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    std::ostringstream contents;
    contents << stream.rdbuf();
    return contents.str();
}

std::string describe(const fs::directory_entry& entry) {
    if (entry.is_symlink())
        return "-> " + fs::read_symlink(entry.path()).string();
    return entry.is_regular_file() ? contentsOf(entry.path()) : std::string();
}

} // namespace

ScratchFolder::ScratchFolder() {
    // In memory where there is such a place: thousands of small files on a disk take most of a test's time.
    const fs::path memory = "/dev/shm";
    const fs::path above = ::access(memory.c_str(), W_OK) == 0 ? memory : fs::temp_directory_path();
    std::string pattern = (above / "quillon-test-XXXXXX").string();
    if (!::mkdtemp(pattern.data()))
        throw std::runtime_error("no scratch folder");
    root_ = pattern;
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    fs::remove_all(root_, ignored);
}

std::string ScratchFolder::path(std::string_view below) const {
    return below.empty() ? root_.string() : (root_ / below).string();
}

void ScratchFolder::write(std::string_view below, std::string_view contents) const {
    const fs::path file = root_ / below;
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << contents;
    makeOld(file);
}

std::set<std::string> ScratchFolder::names() const {
    std::set<std::string> names;
    for (const auto& entry : fs::directory_iterator(root_))
        names.insert(entry.path().filename().string());
    return names;
}

std::map<std::string, std::string> snapshot(const std::string& folder) {
    std::map<std::string, std::string> found;
    if (!fs::exists(folder))
        return found;
    found["./"] = "";
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        const bool isFolder = entry.is_directory() && !entry.is_symlink();
        found[entry.path().lexically_relative(folder).string() + (isFolder ? "/" : "")] = describe(entry);
    }
    return found;
}

std::map<std::string, std::string> snapshotWithModes(const std::string& folder) {
    std::map<std::string, std::string> found = snapshot(folder);
    for (auto& [name, contents] : found) {
        const auto mode = fs::symlink_status(fs::path(folder) / name).permissions();
        contents = std::to_string(static_cast<unsigned>(mode)) + " " + contents;
    }
    return found;
}

void makeOld(const fs::path& file) {
    fs::last_write_time(file, fs::file_time_type::clock::now() - std::chrono::hours(1));
}

} // namespace quillon::test
