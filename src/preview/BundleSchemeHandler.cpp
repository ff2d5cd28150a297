#include "preview/BundleSchemeHandler.h"

#include "base/UnicodeText.h"
#include "package/ProductPictures.h"
#include "preview/BundleAddresses.h"

#include <algorithm>
#include <array>
#include <utility>

namespace quillon {

namespace {

/// What follows the last "." of the last piece of a path.
std::string_view pathExtension(std::string_view key) {
    const std::string_view name = key.substr(key.rfind('/') + 1);
    const std::size_t dot = name.rfind('.');
    // A name that only begins with a "." has no extension.
    return dot == std::string_view::npos || dot == 0 ? std::string_view() : name.substr(dot + 1);
}

Expected<BundleSchemeHandler::Response, BundleSchemeHandler::Failure> productAnswer(std::string_view key) {
    if (key.starts_with(productFolder)) {
        const std::string name = "/" + std::string(key.substr(productFolder.size()));
        for (const std::string_view url : productPictureURLs()) {
            if (url.ends_with(name)) {
                return BundleSchemeHandler::Response{"image/png", Bytes(std::string(*productPicture(url)))};
            }
        }
    }
    return unexpected(BundleSchemeHandler::Failure::fileDoesNotExist);
}

using TypeRow = std::pair<std::string_view, std::string_view>;

constexpr auto typeTable = std::to_array<TypeRow>({
    {"3g2", "video/3gpp2"},       {"3gp", "video/3gpp"},
    {"aac", "audio/aac"},         {"aif", "audio/aiff"},
    {"aiff", "audio/aiff"},       {"amr", "audio/amr"},
    {"apng", "image/apng"},       {"avi", "video/x-msvideo"},
    {"avif", "image/avif"},       {"bmp", "image/bmp"},
    {"caf", "audio/x-caf"},       {"css", "text/css"},
    {"csv", "text/csv"},          {"cur", "image/x-icon"},
    {"flac", "audio/flac"},       {"gif", "image/gif"},
    {"glb", "model/gltf-binary"}, {"gltf", "model/gltf+json"},
    {"heic", "image/heic"},       {"heif", "image/heif"},
    {"htm", "text/html"},         {"html", "text/html"},
    {"ico", "image/x-icon"},      {"jfif", "image/jpeg"},
    {"jpe", "image/jpeg"},        {"jpeg", "image/jpeg"},
    {"jpg", "image/jpeg"},        {"js", "text/javascript"},
    {"json", "application/json"}, {"m3u8", "application/vnd.apple.mpegurl"},
    {"m4a", "audio/mp4"},         {"m4b", "audio/mp4"},
    {"m4v", "video/mp4"},         {"md", "text/markdown"},
    {"mid", "audio/midi"},        {"midi", "audio/midi"},
    {"mjs", "text/javascript"},   {"mkv", "video/x-matroska"},
    {"mov", "video/quicktime"},   {"mp3", "audio/mpeg"},
    {"mp4", "video/mp4"},         {"mpeg", "video/mpeg"},
    {"mpg", "video/mpeg"},        {"oga", "audio/ogg"},
    {"ogg", "audio/ogg"},         {"ogv", "video/ogg"},
    {"opus", "audio/ogg"},        {"otf", "font/otf"},
    {"pdf", "application/pdf"},   {"png", "image/png"},
    {"qt", "video/quicktime"},    {"srt", "application/x-subrip"},
    {"svg", "image/svg+xml"},     {"tif", "image/tiff"},
    {"tiff", "image/tiff"},       {"ts", "video/mp2t"},
    {"ttc", "font/collection"},   {"ttf", "font/ttf"},
    {"txt", "text/plain"},        {"usdz", "model/vnd.usdz+zip"},
    {"vtt", "text/vtt"},          {"wasm", "application/wasm"},
    {"wav", "audio/wav"},         {"weba", "audio/webm"},
    {"webm", "video/webm"},       {"webp", "image/webp"},
    {"woff", "font/woff"},        {"woff2", "font/woff2"},
    {"xml", "application/xml"},   {"zip", "application/zip"},
});
static_assert(std::is_sorted(typeTable.begin(), typeTable.end()));

} // namespace

Expected<BundleSchemeHandler::Response, BundleSchemeHandler::Failure>
BundleSchemeHandler::answer(std::string_view url) const {
    if (url.empty()) {
        return unexpected(Failure::badURL);
    }
    const std::string key = bundleAssetKey(url);
    auto asset = assets->find(key);
    if (asset == assets->end()) {
        // A stray "%" in an address makes the engine encode every one of them once more.
        asset = assets->find(percentDecodedLeniently(key));
    }
    if (asset == assets->end()) {
        return productAnswer(key);
    }
    return Response{mimeType(pathExtension(asset->first)), asset->second};
}

std::string mimeType(std::string_view extension) {
    const std::string wanted = lowercased(extension);
    const auto row =
        std::lower_bound(typeTable.begin(), typeTable.end(), wanted,
                         [](const TypeRow& left, const std::string& right) { return left.first < right; });
    return std::string(row != typeTable.end() && row->first == wanted ? row->second
                                                                      : "application/octet-stream");
}

} // namespace quillon
