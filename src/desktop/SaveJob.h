#pragma once

#include "document/PackageStamp.h"
#include "package/ArticleFileDocument.h"

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
    std::size_t files = 0; ///< below a folder that stands there
};

SavePlace judgeSavePlace(const std::string& path);

/// What a save does with what stands at its path.
enum class SaveRule {
    ifUnchanged, ///< replaces the folder that the document knows, or saves where nothing stands
    replace,     ///< replaces whatever package is there: the user was asked
    onlyIfFree,
};

struct SaveOrder {
    std::string path;
    SaveRule rule = SaveRule::ifUnchanged;
    std::optional<PackageStamp> known; ///< of the folder as the document knows it
};

/// The folder is not as the document knows it; nothing was written.
struct SaveConflict {
    PackageStamp found;
};

/// The stamp of the folder after the save, or why there was none. After a failure the folder is as before.
using SaveOutcome = std::variant<PackageStamp, SaveConflict, PackageFailure>;

SaveOutcome runSave(const ArticleFileDocument& document, const SaveOrder& order);

/// What the user can do about a save that failed, in one sentence.
std::string saveAdvice(const PackageFailure& failure);

/// Whether a look at a folder failed because none stands there.
bool isMissing(const DiskFailure& failure);

} // namespace quillon
