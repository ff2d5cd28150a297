#include "model/ArticleDocument.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

/// Whatever the bytes are, reading them gives an article or a message; and what was read once and written
/// reads again and is written the same.

using namespace quillon;

namespace {

void require(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "broken: %s\n", what);
        std::abort();
    }
}

std::string written(const ArticleDocument& article) {
    auto json = sharedArticleEncoder.encode(article);
    require(json.has_value(), "an article that was read can be written");
    return std::move(*json);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const auto article = sharedArticleDecoder.decode(std::string(reinterpret_cast<const char*>(data), size));
    if (!article) {
        const ReadFailure& failure = article.error();
        require(!failure.expected.empty() && !failure.found.empty(), "a failure says what and why");
        require(failure.message().find('\n') == std::string::npos, "a message is one line");
        require(failure.found.find("Problem while") == std::string::npos,
                "a failure of the text has a place");
        return 0;
    }
    const std::string once = written(*article);
    const auto again = sharedArticleDecoder.decode(once);
    require(again.has_value(), "what was written can be read");
    require(written(*again) == once, "writing is stable");
    return 0;
}
