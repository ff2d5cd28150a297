#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace quillon {

/// A decoded picture: rows from top to bottom, a pixel as 0xAARRGGBB with colours multiplied by alpha.
struct DecodedImage {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;

    std::size_t memory() const { return pixels.size() * sizeof(std::uint32_t); }
};

using SharedImage = std::shared_ptr<const DecodedImage>;

/// Makes a picture of a file's bytes; null for bytes that are none.
using ImageDecoder = std::function<SharedImage(std::string_view bytes)>;

/// Pictures by key, as many as fit: the one not asked for the longest goes first. One that alone is larger
/// than the bound is not kept.
class ImageCache {
public:
    static constexpr std::size_t defaultBound = 128U << 20U; ///< bytes of pixels

    explicit ImageCache(std::size_t bound = defaultBound) : m_bound(bound) {}

    /// Null where it is not there.
    SharedImage find(const std::string& key);
    void insert(const std::string& key, SharedImage image);
    std::size_t count() const { return m_entries.size(); }

private:
    struct Entry {
        std::string key;
        SharedImage image;
    };

    std::size_t m_bound;
    std::size_t m_memory = 0;
    std::list<Entry> m_entries; ///< the one asked for last is in front
    std::unordered_map<std::string, std::list<Entry>::iterator> m_places;
};

} // namespace quillon
