#include "preview/ArticleDerivedContentCache.h"

#include "base/UnicodeText.h"
#include "preview/BundleAddresses.h"

#include <cmath>
#include <utility>

namespace quillon {

namespace {

/// In whole points, halves away from zero.
std::string roundedWidth(const PreviewEnvironment& environment) {
    return std::to_string(std::llround(environment.viewportWidth));
}

std::string contentKey(std::int64_t generation, const PreviewRenderRequest& request) {
    const PreviewEnvironment& environment = request.environment;
    std::string key = "preview-" + std::to_string(generation);
    for (const std::string& line :
         {environment.label, roundedWidth(environment), environment.platform, environment.horizontalSizeClass,
          environment.verticalSizeClass, std::string(rawValue(environment.appearance)),
          environment.mapsEmbedOrigin.value_or(""), *request.assetsFingerprint}) {
        key += '\n';
        key += line;
    }
    return key;
}

} // namespace

ArticleDerivedContentCache::ArticleDerivedContentCache(ImageDecoder decoder)
    : m_decoder(std::move(decoder)) {}

std::optional<RenderedPreview>
ArticleDerivedContentCache::renderedPreview(const PreviewRenderRequest& request) const {
    if (m_previewEntry && m_previewEntry->environment == request.environment &&
        m_previewEntry->assetsFingerprint == request.assetsFingerprint &&
        m_previewEntry->article == request.article) {
        return RenderedPreview{m_previewEntry->html, m_previewEntry->key};
    }
    return std::nullopt;
}

std::string ArticleDerivedContentCache::storePreview(Shared<std::string> html,
                                                     const PreviewRenderRequest& request) {
    ++m_previewGeneration;
    std::string key = contentKey(m_previewGeneration, request);
    m_previewEntry =
        PreviewEntry{request.article, request.environment, request.assetsFingerprint, std::move(html), key};
    return key;
}

Shared<std::string> ArticleDerivedContentCache::jsonText(const ArticleDocument& article) {
    if (!m_jsonEntry || !(m_jsonEntry->article == article)) {
        auto json = sharedArticleEncoder.encode(article);
        const bool isText = json && isValidUtf8(*json);
        m_jsonEntry = JSONEntry{article, isText ? std::move(*json) : std::string("{}")};
    }
    return m_jsonEntry->json;
}

SharedImage ArticleDerivedContentCache::image(std::string_view reference, const Assets& assets) {
    if (!reference.starts_with(bundlePrefix)) {
        return nullptr;
    }
    // As it stands, without decoding: other than for the addresses of a page.
    const auto asset = assets.find(reference.substr(bundlePrefix.size()));
    if (asset == assets.end()) {
        return nullptr;
    }
    const auto& [key, bytes] = *asset;
    const std::string cacheKey = key + ":" + std::to_string(bytes.size());
    if (SharedImage known = m_imageCache.find(cacheKey)) {
        return known;
    }
    SharedImage decoded = m_decoder ? m_decoder(bytes.view()) : nullptr;
    if (decoded) {
        m_imageCache.insert(cacheKey, decoded);
    }
    return decoded;
}

std::string previewDetail(const ArticleDocument& article, const PreviewEnvironment& environment,
                          const Assets& assets) {
    return "components=" + std::to_string(article.components.size()) + " " + assetsDetailText(assets) +
           " viewport=" + roundedWidth(environment) + " label=" + environment.label +
           " appearance=" + std::string(rawValue(environment.appearance));
}

} // namespace quillon
