#pragma once

#include "base/Expected.h"
#include "model/Component.h"
#include "model/Metadata.h"

#include <map>
#include <string>

namespace quillon {

/// The article's switch for dark mode.
struct ColorScheme {
    Optional<bool> automaticDarkModeEnabled; ///< counts as true when absent

    bool operator==(const ColorScheme&) const = default;
};

/// Styles by their names.
template <typename Style>
using NamedStyles = std::map<std::string, Shared<Style>>;

/// An article: the top level of `article.json`. A value: editing gives a new one, and equality tells whether
/// an article changed. A document read from JSON holds what the file holds and no defaults.
struct ArticleDocument {
    std::string version; ///< of the format; never interpreted
    std::string identifier;
    std::string language; ///< "en"
    std::string title;
    Optional<std::string> subtitle;
    Layout layout;
    Optional<DocumentStyle> documentStyle;
    Optional<ColorScheme> colorScheme;
    Optional<TextFormat> textFormat; ///< of components without a `format`
    Optional<Metadata> metadata;
    Optional<AdvertisingSettings> advertisingSettings;
    Optional<NamedStyles<ComponentStyle>> componentStyles;
    Optional<NamedStyles<ComponentTextStyle>> componentTextStyles;
    Optional<NamedStyles<TextStyle>> textStyles;
    Optional<NamedStyles<ComponentLayout>> componentLayouts;
    List<Component> components;
    PreservedFields preservedFields; ///< every other key

    bool operator==(const ArticleDocument&) const = default;
};

template <>
struct RecordTable<ColorScheme> {
    static const RecordInfo& info();
};

template <>
struct RecordTable<ArticleDocument> {
    static const RecordInfo& info();
};

/// Why an article has no JSON: it holds a number that is not finite.
struct EncodeFailure {
    std::string message;
};

/// The one reader of article JSON.
struct ArticleDecoder {
    /// The article in `json`, or where and why it is none. UTF-8, with or without a byte order mark.
    Expected<ArticleDocument, ReadFailure> decode(std::string json) const;
};

/// The one writer of article JSON: what a save writes and what the JSON view shows, byte for byte.
struct ArticleEncoder {
    Expected<std::string, EncodeFailure> encode(const ArticleDocument& article) const;
};

inline constexpr ArticleDecoder sharedArticleDecoder;
inline constexpr ArticleEncoder sharedArticleEncoder;

} // namespace quillon
