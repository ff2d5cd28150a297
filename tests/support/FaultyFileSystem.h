#pragma once

#include "base/FileSystem.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace quillon::test {

enum class FaultKind {
    one,        ///< the step fails, and those after it work again
    fullDevice, ///< from the step on everything fails that needs room
    kill,       ///< the process ends before the step
};

struct FaultPlan {
    std::size_t step = 0; ///< counted from 1; 0 for no fault
    FaultKind kind = FaultKind::one;
    int errorNumber = 0;

    bool canExchange = true;
    bool canLink = true;
    bool canClone = false; ///< by copying
    bool canLock = true;

    /// Called before each step with the name of its operation; what it does is the work of another program.
    std::function<void(std::string_view)> before = nullptr;
};

constexpr int killedStatus = 77;

/// The file system of the machine with a fault in one step. Nothing is truly flushed, and a write takes a few
/// bytes only, so that there are several for each file.
class FaultyFileSystem final : public FileSystem {
public:
    explicit FaultyFileSystem(FaultPlan plan) : plan_(std::move(plan)) {}

    /// Whether the fault came to pass.
    bool hasStruck() const { return hasStruck_; }
    /// The operation and, where it is known, the name of the file that it struck.
    const std::string& struckOperation() const { return struckOperation_; }
    const std::string& struckName() const { return struckName_; }

    SystemResult<std::string> resolve(const std::string& path) override;
    SystemResult<FileDescriptor> openRoot(const std::string& path) override;
    SystemResult<FileDescriptor> openFolder(int folder, const std::string& name) override;
    SystemResult<FileDescriptor> openFile(int folder, const std::string& name) override;
    SystemResult<NodeStatus> status(int file) override;
    SystemResult<NodeStatus> statusAt(int folder, const std::string& name) override;
    SystemResult<std::vector<FolderEntry>> list(int folder) override;
    SystemResult<std::size_t> read(int file, char* buffer, std::size_t size) override;
    SystemResult<FileDescriptor> createFile(int folder, const std::string& name, unsigned mode) override;
    SystemResult<void> makeFolder(int folder, const std::string& name, unsigned mode) override;
    SystemResult<std::size_t> write(int file, std::string_view text) override;
    SystemResult<void> link(int folder, const std::string& name, int newFolder) override;
    SystemResult<void> clone(int from, int to) override;
    SystemResult<void> setAccess(int file, const NodeStatus& like) override;
    SystemResult<void> setModified(int file, std::int64_t modified) override;
    SystemResult<void> sync(int file) override;
    SystemResult<void> rename(int folder, const std::string& from, const std::string& to,
                              RenameRule rule) override;
    SystemResult<void> unlink(int folder, const std::string& name) override;
    SystemResult<void> removeFolder(int folder, const std::string& name) override;
    SystemResult<void> lock(int folder) override;

private:
    enum class Room { needed, notNeeded };

    /// Counts a step; the error it is to fail with, or 0.
    int strike(const char* operation, const std::string& name, Room room = Room::notNeeded);
    /// Does a step, unless it is to fail.
    template <typename Call>
    auto step(const char* operation, const std::string& name, Room room, Call call) -> decltype(call());
    std::string nameOf(int file) const;

    FaultPlan plan_;
    FileSystem& real_ = systemFileSystem();
    std::size_t steps_ = 0;
    bool hasStruck_ = false;
    std::string struckOperation_;
    std::string struckName_;
    std::map<int, std::string> created_; ///< by descriptor
};

} // namespace quillon::test
