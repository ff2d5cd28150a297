#pragma once

#include "document/FileState.h"
#include "document/RecoveryStore.h"
#include "package/ArticleFileDocument.h"

#include <optional>
#include <string>

namespace quillon {

/// A document made from a recovery copy and what is left of its package.
struct RecoveredDocument {
    ArticleFileDocument document;
    FileState state;
    ArticleFileDocument saved; ///< what the folder holds; an empty document where it holds none
    /// Why the assets are not part of it, for people; nothing when they are.
    std::optional<std::string> lackOfAssets;
};

/// The document as the user last had it. Where the folder's assets cannot be read although it is there, the
/// document has no folder any more, so that no save can remove them.
Expected<RecoveredDocument, DiskFailure> readRecovered(const LeftRecoveryCopy& left);

/// The document in the folder at `path`; where only its article is broken, its assets with an empty article.
Expected<ArticleFileDocument, PackageFailure> readWhatThereIs(const std::string& path);

/// Where the recovery copies of this user stand.
std::string recoveryFolder();

} // namespace quillon
