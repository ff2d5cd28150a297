#include "desktop/SaveJob.h"

#include "desktop/PackagePath.h"
#include "document/TouchedFiles.h"
#include "package/PackageFile.h"

#include <cerrno>
#include <filesystem>

namespace quillon {

namespace {

namespace fs = std::filesystem;

bool holdsArticle(const std::string& folder) {
    std::error_code error;
    return fs::is_regular_file(folder + "/" + std::string(articleFileName), error);
}

bool isInsidePackage(const std::string& path) {
    for (std::string above = parentFolder(path); above != "/"; above = parentFolder(above)) {
        if (holdsArticle(above)) {
            return true;
        }
    }
    return false;
}

struct Advice {
    int errorNumber;
    std::string_view text;
};

constexpr Advice advices[] = {
    {ENOSPC, "Free some space on the disk, or use Save As… to choose another place."},
    {EDQUOT, "Free some space on the disk, or use Save As… to choose another place."},
    {EACCES, "You may not write there. Use Save As… to choose another place."},
    {EPERM, "You may not write there. Use Save As… to choose another place."},
    {EROFS, "You may not write there. Use Save As… to choose another place."},
    {ENOENT, "The folder around the article is missing. Use Save As… to choose another place."},
    {ENOTDIR, "There is no folder any more. Use Save As… to choose another place."},
    {EEXIST, "Something else has this name now. Use Save As… to choose another name."},
    {ENAMETOOLONG, "Use Save As… to choose a shorter name."},
    {ESTALE, "Save once more."},
    {EBUSY, "Save once more."},
};

} // namespace

bool isMissing(const DiskFailure& failure) {
    return failure.errorNumber == ENOENT || failure.errorNumber == ENOTDIR;
}

SavePlace judgeSavePlace(const std::string& path) {
    const std::string place = resolvedPath(path);
    std::error_code error;
    if (!fs::is_directory(parentFolder(place), error)) {
        return {SavePlaceKind::noParent};
    }
    if (isInsidePackage(place)) {
        return {SavePlaceKind::insidePackage};
    }
    return judgeFolder(place);
}

SavePlace judgeFolder(const std::string& path) {
    std::error_code error;
    const fs::file_status status = fs::symlink_status(path, error);
    if (!fs::exists(status)) {
        return {SavePlaceKind::free};
    }
    if (!fs::is_directory(status)) {
        return {SavePlaceKind::notAFolder};
    }
    if (holdsArticle(path)) {
        return {SavePlaceKind::package, packageStamp(path).value_or(PackageStamp{})};
    }
    const bool isEmpty = fs::is_empty(path, error);
    return {isEmpty && !error ? SavePlaceKind::emptyFolder : SavePlaceKind::foreignFolder};
}

SaveOutcome runSave(const ArticleFileDocument& document, const SaveOrder& order) {
    auto found = packageStamp(order.path);
    if (!found && !isMissing(found.error())) {
        return PackageFailure{std::move(found.error())};
    }
    if (found && order.known != *found) {
        return SaveConflict{std::move(*found)};
    }
    if (found && order.saved && found->changeTimes != order.known->changeTimes) {
        auto isSame = holdsStill(order.path, *order.known, *found, *order.saved);
        if (!isSame) {
            return std::move(isSame.error());
        }
        if (!*isSame) {
            return SaveConflict{std::move(*found)};
        }
    }
    const Existing existing = found ? Existing::replace : Existing::refuse;
    auto saved = savePackage(document, order.path, existing, order.known ? &*order.known : nullptr);
    if (saved) {
        return std::move(saved->stamp);
    }
    const auto* failure = std::get_if<DiskFailure>(&saved.error().cause);
    if (failure && failure->errorNumber == ESTALE) {
        // Another program wrote to the folder during the save.
        if (found = packageStamp(order.path); found && order.known != *found) {
            return SaveConflict{std::move(*found)};
        }
    }
    return std::move(saved.error());
}

std::string saveAdvice(const PackageFailure& failure) {
    if (std::holds_alternative<EncodeFailure>(failure.cause)) {
        return "Undo the last changes, or correct this number, and save again.";
    }
    if (const auto* disk = std::get_if<DiskFailure>(&failure.cause)) {
        for (const Advice& advice : advices) {
            if (advice.errorNumber == disk->errorNumber) {
                return std::string(advice.text);
            }
        }
    }
    return "Save once more, or use Save As… to choose another place.";
}

} // namespace quillon
