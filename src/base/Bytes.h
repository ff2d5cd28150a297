#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace quillon {

/// What tells one state of a file on disk from another. The change time is left out on purpose: it moves
/// with every link that is made or removed, and a save links.
struct FileIdentity {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::uint64_t size = 0;    ///< bytes
    std::int64_t modified = 0; ///< nanoseconds since 1970

    bool operator==(const FileIdentity&) const = default;
};

/// The contents of a file: immutable, shared by all copies, safe to hand to other threads. The handle may
/// know its origin, the file on disk that held exactly these bytes when they were read or written.
class Bytes {
public:
    Bytes() = default;
    explicit Bytes(std::string contents, std::optional<FileIdentity> origin = std::nullopt)
        : block_(std::make_shared<Block>(std::move(contents), origin)) {}

    std::size_t size() const { return view().size(); }
    bool empty() const { return view().empty(); }

    /// Valid as long as any copy of this handle lives.
    std::string_view view() const { return block_ ? std::string_view(block_->contents) : std::string_view(); }

    std::optional<FileIdentity> origin() const {
        if (!block_)
            return std::nullopt;
        const std::lock_guard guard(block_->mutex);
        return block_->origin;
    }

    /// Notes, for all copies of the handle, that a file now holds these bytes. Leaves equality as it is.
    void noteOrigin(const FileIdentity& origin) const {
        if (!block_)
            return;
        const std::lock_guard guard(block_->mutex);
        block_->origin = origin;
    }

    /// Compares contents; copies of one handle are equal at once.
    friend bool operator==(const Bytes& left, const Bytes& right) {
        return left.block_ == right.block_ || left.view() == right.view();
    }

private:
    struct Block {
        Block(std::string text, std::optional<FileIdentity> file) : contents(std::move(text)), origin(file) {}

        const std::string contents;
        std::mutex mutex; ///< guards `origin`
        std::optional<FileIdentity> origin;
    };

    std::shared_ptr<Block> block_;
};

} // namespace quillon
