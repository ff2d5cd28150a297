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

    /// Offers the script of a page, to be fetched once, in place of the one before; returns its address,
    /// which no script of an earlier page can know.
    std::string offerPage(std::uint64_t page, Bytes script);

    /// Told when a page's script goes out.
    std::function<void(std::uint64_t page)> onPageRequested;

    void requestStarted(QWebEngineUrlRequestJob* job) override;

private:
    const BundleSchemeHandler& m_assets;
    std::string m_offeredURL;
    std::uint64_t m_offeredPage = 0; ///< 0 when there is none
    Bytes m_offeredScript;
};

} // namespace quillon
