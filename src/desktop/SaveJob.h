#pragma once

#include "package/ArticleFileDocument.h"
#include "package/PackageStamp.h"

#include <cstddef>
#include <optional>
#include <string>
#include <variant>

/// The part of a save that runs away from the main thread.
namespace quillon {

/// What stands where an article is to be saved for the first time.
enum class SavePlaceKind {
    free,          ///< nothing
    emptyFolder,   ///< a folder without files
    package,       ///< a folder with an article
    foreignFolder, ///< a folder that holds something else, which a save would remove
    notAFolder,
    insidePackage, ///< below a folder with an article, whose next save would remove it
    noParent,      ///< the folder above is missing
};

struct SavePlace {
    SavePlaceKind kind = SavePlaceKind::free;
    PackageStamp stamp = {}; ///< of a package that stands there
};

/// What a new article would find at `path`, and around it.
SavePlace judgeSavePlace(const std::string& path);

/// What stands at `path`, whatever is around it.
SavePlace judgeFolder(const std::string& path);

struct SaveOrder {
    std::string path;
    /// The stamp of the folder that may be replaced, if it stands there; without one, none may.
    std::optional<PackageStamp> known = std::nullopt;
    /// What that folder holds, to be compared where its files were touched; nothing where the user was asked.
    std::optional<ArticleFileDocument> saved = std::nullopt;
};

/// A folder stands there that may not be replaced; nothing was written.
struct SaveConflict {
    PackageStamp found;
};

/// The stamp of the folder that was written, or why none was. After a failure the folder is as before.
using SaveOutcome = std::variant<PackageStamp, SaveConflict, PackageFailure>;

SaveOutcome runSave(const ArticleFileDocument& document, const SaveOrder& order);

/// What the user can do about a save that failed, in one sentence.
std::string saveAdvice(const PackageFailure& failure);

/// Whether a look at a folder failed because none stands there.
bool isMissing(const DiskFailure& failure);

} // namespace quillon
