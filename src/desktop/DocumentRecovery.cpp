#include "desktop/DocumentRecovery.h"

#include "desktop/SaveJob.h"
#include "package/NewArticle.h"
#include "package/PackageFile.h"
#include "package/PackageStamp.h"

#include <QStandardPaths>
#include <QtGlobal>

#include <utility>

namespace quillon {

namespace {

FileState stateOf(const std::string& path, const RecoveryInfo& info, const PackageStamp& stamp) {
    if (stamp.mark() == info.packageMark) {
        return file::AtPath{path, stamp};
    }
    // As the document knew it, the folder had a stamp that is lost; no other equals the empty one.
    return file::ChangedOnDisk{path, PackageStamp{}};
}

RecoveredDocument recoveredAt(const std::string& path, const RecoveryInfo& info, ArticleDocument article) {
    const auto stamp = packageStamp(path);
    auto found = readWhatThereIs(path);
    if (stamp && found) {
        ArticleFileDocument document = *found;
        document.article = std::move(article);
        return {std::move(document), stateOf(path, info, *stamp), std::move(*found), std::nullopt};
    }
    FileState state = file::NeverSaved{};
    if (!stamp && isMissing(stamp.error())) {
        state = file::Gone{path, PackageStamp{}, true};
    }
    return {makeNewDocument(std::move(article)),
            std::move(state),
            {},
            found ? stamp.error().message : found.error().message(path)};
}

} // namespace

Expected<ArticleFileDocument, PackageFailure> readWhatThereIs(const std::string& path) {
    auto whole = openPackage(path);
    if (whole || !std::holds_alternative<ReadFailure>(whole.error().cause)) {
        return whole;
    }
    const auto root = readFolder(path);
    if (!root) {
        return unexpected(PackageFailure{root.error()});
    }
    auto assets = collectAssets(*root, "");
    if (!assets) {
        return unexpected(PackageFailure{std::move(assets.error())});
    }
    ArticleFileDocument document;
    document.assetsFingerprint = assetsFingerprintText(*assets);
    document.assets = std::move(*assets);
    return document;
}

Expected<RecoveredDocument, DiskFailure> readRecovered(const LeftRecoveryCopy& left) {
    auto article = left.article();
    if (!article) {
        return unexpected(std::move(article.error()));
    }
    if (!left.info().packagePath) {
        return RecoveredDocument{makeNewDocument(std::move(*article)), file::NeverSaved{}, {}, std::nullopt};
    }
    return recoveredAt(*left.info().packagePath, left.info(), std::move(*article));
}

std::string recoveryFolder() {
#if defined(Q_OS_UNIX) && !defined(Q_OS_DARWIN)
    std::string base = qgetenv("XDG_STATE_HOME").toStdString();
    if (base.empty() || base.front() != '/') {
        base = qgetenv("HOME").toStdString() + "/.local/state";
    }
    return base + "/quillon/recovery";
#else
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation).toStdString() + "/recovery";
#endif
}

} // namespace quillon
