#include "model/ArticleDocument.h"

#include "model/Fields.h"

#include <algorithm>

namespace quillon {

const RecordInfo& RecordTable<ColorScheme>::info() {
    static const RecordInfo table{{
        optional<&ColorScheme::automaticDarkModeEnabled>("automaticDarkModeEnabled"),
    }};
    return table;
}

const RecordInfo& RecordTable<ArticleDocument>::info() {
    static const RecordInfo table(
        {
            required<&ArticleDocument::version>("version"),
            required<&ArticleDocument::identifier>("identifier"),
            required<&ArticleDocument::language>("language"),
            required<&ArticleDocument::title>("title"),
            optional<&ArticleDocument::subtitle>("subtitle"),
            required<&ArticleDocument::layout>("layout"),
            optional<&ArticleDocument::documentStyle>("documentStyle"),
            optional<&ArticleDocument::colorScheme>("colorScheme"),
            optional<&ArticleDocument::textFormat>("textFormat"),
            optional<&ArticleDocument::metadata>("metadata"),
            optional<&ArticleDocument::advertisingSettings>("advertisingSettings"),
            optional<&ArticleDocument::componentStyles>("componentStyles"),
            optional<&ArticleDocument::componentTextStyles>("componentTextStyles"),
            optional<&ArticleDocument::textStyles>("textStyles"),
            optional<&ArticleDocument::componentLayouts>("componentLayouts"),
            required<&ArticleDocument::components>("components"),
        },
        [](void* record) -> PreservedFields& {
            return static_cast<ArticleDocument*>(record)->preservedFields;
        });
    return table;
}

Expected<ArticleDocument, ReadFailure> ArticleDecoder::decode(std::string json) const {
    const auto text = JsonText::parse(std::move(json));
    if (!text) {
        const JsonFailure& failure = text.error();
        return unexpected(ReadFailure{
            "line " + std::to_string(failure.line) + ", column " + std::to_string(failure.column),
            failure.expected,
            failure.found,
        });
    }
    ArticleDocument article;
    ReadFailure failure;
    if (!readValue(text->root(), article, failure)) {
        return unexpected(std::move(failure));
    }
    return article;
}

Expected<std::string, EncodeFailure> ArticleEncoder::encode(const ArticleDocument& article) const {
    constexpr size_t usualComponentSize = 512;
    JsonWriter writer(usualComponentSize * std::min<size_t>(article.components.size(), 100'000));
    writeValue(writer, article);
    if (writer.hasFailed()) {
        return unexpected(
            EncodeFailure{"The article holds a number that is not finite, which JSON cannot express."});
    }
    return writer.take();
}

} // namespace quillon
