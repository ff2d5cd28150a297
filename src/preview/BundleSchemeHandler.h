#pragma once

#include "base/Expected.h"
#include "package/ArticleFileDocument.h"

#include <string>
#include <string_view>

namespace quillon {

/// Answers a web view's requests for `bundle:` addresses from the assets in memory, and those for the
/// product's own pictures from the program.
class BundleSchemeHandler {
public:
    /// Why an address has no answer; the names are those of the platform's error codes.
    enum class Failure { badURL, fileDoesNotExist };

    struct Response {
        std::string mimeType;
        Bytes data; ///< the whole asset
    };

    Shared<Assets> assets;

    /// `url` is the percent-encoded text of the address.
    Expected<Response, Failure> answer(std::string_view url) const;
};

/// The type of files that end in `extension`, of any letter case; "application/octet-stream" for one that is
/// not known. From the registry of media types (IANA), and what browsers expect where it has several.
std::string mimeType(std::string_view extension);

} // namespace quillon
