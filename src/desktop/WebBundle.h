#pragma once

#include "preview/BundleSchemeHandler.h"

#include <QWebEngineUrlSchemeHandler>

#include <cstdint>
#include <functional>
#include <string>

namespace quillon {

/// Answers the `bundle:` addresses of one web view from memory: the assets, and the scripts by which pages
/// are handed over.
class WebBundle : public QWebEngineUrlSchemeHandler {
    Q_OBJECT

public:
    explicit WebBundle(const BundleSchemeHandler& assets);

    /// Makes `script` the answer to `scriptURL(page)`, once, and forgets the one offered before.
    void offerPage(std::uint64_t page, Bytes script);
    /// The address of a page's script. No script of a page can guess that of a later one.
    std::string scriptURL(std::uint64_t page) const;

    /// Told when a page's script goes out.
    std::function<void(std::uint64_t page)> onPageRequested;

    void requestStarted(QWebEngineUrlRequestJob* job) override;

private:
    const BundleSchemeHandler& m_assets;
    std::string m_secret;
    std::uint64_t m_offeredPage = 0; ///< 0 when there is none
    Bytes m_offeredScript;
};

} // namespace quillon
