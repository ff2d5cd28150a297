#include "package/ProductPictures.h"

#include "base/endpoints.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>

namespace quillon {

/// A row of the table that the build makes of assets/pictures (cmake/EmbedFiles.cmake).
struct EmbeddedFile {
    const char* name; ///< "hero.png"
    const char* bytes;
    std::size_t size;
};

extern "C" {
extern const EmbeddedFile quillonPictures[];
extern const std::size_t quillonPicturesCount;
}

namespace {

constexpr auto exampleStems = std::to_array<std::string_view>({
    "light-on-the-water",
    "numbers-with-a-pulse",
    "inside-the-edit",
    "shape-of-a-story",
    "quiet-table",
    "culture-desk",
    "beyond-the-horizon",
    "signal-in-the-city",
});

using Addresses = std::array<std::string_view, exampleStems.size() + 2>;

const Addresses& addresses() {
    static const auto examples = [] {
        std::array<std::string, exampleStems.size()> urls;
        std::ranges::transform(exampleStems, urls.begin(), [](std::string_view stem) {
            return std::string(endpoints::exampleImagePrefix).append(stem).append(".png");
        });
        return urls;
    }();
    static const auto all = [] {
        Addresses urls;
        urls.front() = endpoints::heroImage;
        std::ranges::copy(examples, urls.begin() + 1);
        urls.back() = endpoints::productIcon;
        return urls;
    }();
    return all;
}

} // namespace

std::optional<std::string_view> productPicture(std::string_view url) {
    if (std::ranges::find(addresses(), url) == addresses().end()) {
        return std::nullopt;
    }
    const std::string_view name = url.substr(url.rfind('/') + 1);
    const std::span files(quillonPictures, quillonPicturesCount);
    const auto file = std::ranges::find(files, name, &EmbeddedFile::name);
    if (file == files.end()) {
        return std::nullopt;
    }
    return std::string_view(file->bytes, file->size);
}

std::span<const std::string_view> productPictureURLs() {
    return addresses();
}

} // namespace quillon
