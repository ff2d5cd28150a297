#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <string_view>

namespace quillon::test {

/// A folder of its own for one test, removed at the end.
class ScratchFolder {
public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    std::string path(std::string_view below = {}) const;

    /// Writes a file and the folders above it. Its time lies an hour back, as that of a file the user has had
    /// for a while.
    void write(std::string_view below, std::string_view contents) const;

    /// The names in the folder itself.
    std::set<std::string> names() const;

private:
    std::filesystem::path root_;
};

/// All that is below `folder`: paths with a final "/" for folders, and contents; "-> TARGET" for symbolic
/// links. Empty where there is nothing at that path.
std::map<std::string, std::string> snapshot(const std::string& folder);

/// The same with the permission bits before the contents.
std::map<std::string, std::string> snapshotWithModes(const std::string& folder);

/// Dates a file an hour back.
void makeOld(const std::filesystem::path& file);

} // namespace quillon::test
