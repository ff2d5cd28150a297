#include "render/ComponentFixture.h"

#include "base/JsonWriter.h"

#include <gtest/gtest.h>

namespace quillon {

ComponentFixture::ComponentFixture(std::string_view component, std::string_view members) {
    std::string json =
        R"({"version":"1.7","identifier":"a","language":"en","title":"T","layout":{"columns":7,"width":1024})";
    json += members;
    json += R"(,"components":[)";
    json += component;
    json += "]}";
    auto read = sharedArticleDecoder.decode(json);
    if (!read) {
        ADD_FAILURE() << read.error().message() << " in " << json;
        article.components = List<Component>{Component{}};
        return;
    }
    article = *std::move(read);
}

std::string ComponentFixture::written(Writer writer) {
    const HTMLRenderer::PageContext context = {article, environment, HTMLRenderer::GridMetrics{}, darkCSS,
                                               now};
    HTMLRenderer::PageText page;
    writer(page, component(), context);
    return page.take();
}

std::string jsonText(std::string_view text) {
    JsonWriter writer;
    writer.text(text);
    return writer.take();
}

} // namespace quillon
