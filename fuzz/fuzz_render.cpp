#include "model/ArticleDocument.h"
#include "render/Page.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// Whatever article the bytes are, it has a page in any environment, and always the same.

using namespace quillon;

namespace {

void require(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "broken: %s\n", what);
        std::abort();
    }
}

/// An environment chosen by `bits`.
PreviewEnvironment environmentOf(uint64_t bits) {
    const auto choice = [&bits](size_t count) {
        const auto chosen = static_cast<size_t>(bits % count);
        bits /= count;
        return chosen;
    };
    const auto device = allDevices()[choice(allDevices().size())];
    const auto orientation = allOrientations()[choice(allOrientations().size())];
    const auto appearance = allAppearances()[choice(allAppearances().size())];
    const bool hasToken = choice(2) == 1;
    PreviewEnvironment environment =
        previewEnvironment(device, orientation, static_cast<double>(choice(2000)), std::nullopt);
    environment.appearance = appearance;
    if (hasToken) {
        environment.mapsEmbedToken = "a.eyJvcmlnaW4iOiJodHRwczovL2EuZXhhbXBsZSJ9.b";
        environment.mapsEmbedOrigin = "https://a.example";
    }
    return environment;
}

/// A number that any change of the bytes changes.
uint64_t hashOf(const uint8_t* data, size_t size) {
    uint64_t hash = 0xCBF29CE484222325;
    for (size_t i = 0; i < size; ++i) {
        hash = (hash ^ data[i]) * 0x100000001B3;
    }
    return hash >> 8;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const auto article = sharedArticleDecoder.decode(std::string(reinterpret_cast<const char*>(data), size));
    if (!article) {
        return 0;
    }
    const PreviewEnvironment environment = environmentOf(hashOf(data, size));
    const std::string page = HTMLRenderer::renderPage(*article, environment, 0);
    require(page.starts_with("<!DOCTYPE html>\n"), "a page begins with its doctype");
    require(page.ends_with("</html>"), "a page is complete");
    require(HTMLRenderer::renderPage(*article, environment, 0) == page,
            "the page of an article stays the same");
    return 0;
}
