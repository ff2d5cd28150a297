#pragma once

#include "model/ArticleDocument.h"
#include "package/ArticleFileDocument.h"
#include "preview/ImageCache.h"
#include "preview/PreviewRenderRequest.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quillon {

/// The last expensive things derived from the article of one window: its page, its JSON text, pictures from
/// its assets. What it holds is trusted only after its inputs compare equal to the current ones, so it is
/// never stale. Main thread only.
class ArticleDerivedContentCache {
public:
    struct PreviewEntry {
        ArticleDocument article;
        PreviewEnvironment environment;
        Shared<std::string> assetsFingerprint;
        Shared<std::string> html;
        std::string key;
    };

    struct JSONEntry {
        ArticleDocument article;
        Shared<std::string> json;
    };

    explicit ArticleDerivedContentCache(ImageDecoder decoder = {});

    const std::optional<PreviewEntry>& previewEntry() const { return m_previewEntry; }
    const std::optional<JSONEntry>& jsonEntry() const { return m_jsonEntry; }
    std::int64_t previewGeneration() const { return m_previewGeneration; } ///< pages stored so far
    const ImageCache& imageCache() const { return m_imageCache; }

    /// The stored page of exactly this request; nothing when there is none.
    std::optional<RenderedPreview> renderedPreview(const PreviewRenderRequest& request) const;

    /// Keeps a finished page in place of the one before. Returns its content key: nine lines, the first of
    /// which makes it unique within the window; the rest is for people.
    std::string storePreview(Shared<std::string> html, const PreviewRenderRequest& request);

    /// The article's JSON as a save writes it; "{}" for one that has none.
    Shared<std::string> jsonText(const ArticleDocument& article);

    /// The picture that `reference`, "bundle://" and an asset's key as it stands, names; null for any other
    /// reference, a missing asset and bytes that are no picture.
    SharedImage image(std::string_view reference, const Assets& assets);

private:
    std::optional<PreviewEntry> m_previewEntry;
    std::optional<JSONEntry> m_jsonEntry;
    std::int64_t m_previewGeneration = 0;
    ImageCache m_imageCache;
    ImageDecoder m_decoder;
};

/// What the log says of a render: "components=3 assets=2 bytes=1500 viewport=393 label=iPhone
/// appearance=Auto"; only components of the top level count.
std::string previewDetail(const ArticleDocument& article, const PreviewEnvironment& environment,
                          const Assets& assets);

} // namespace quillon
