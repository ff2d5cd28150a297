#pragma once

#include "base/Scheduler.h"
#include "document/RecoveryStore.h"
#include "package/ArticleFileDocument.h"
#include "package/ProgressFileSystem.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QDialog;

namespace quillon {

struct PackageStamp;

/// A package as it was read.
struct OpenedPackage {
    std::string path; ///< resolved
    Shared<PackageStamp> stamp;
    ArticleFileDocument document;
    std::optional<LeftRecoveryCopy> left; ///< the latest copy that a crashed program left of it
};

/// What a read of a package comes to.
using OpeningResult = Expected<OpenedPackage, PackageFailure>;

/// Reads the package at `path`, resolved; failures name it as `shownPath`.
OpeningResult readForOpening(const std::string& path, const std::string& shownPath,
                             const RecoveryStore& recovery, ReadProgress& progress);

/// What the user can do about a package that could not be opened, in one sentence.
std::string openAdvice(const PackageFailure& failure);

/// One package on its way from the disk into a window. It shows a small window when that takes long.
class DocumentOpening : public QObject {
    Q_OBJECT

public:
    /// `path` as the user gave it, absolute.
    DocumentOpening(std::string path, Scheduler& scheduler, const RecoveryStore& recovery);
    ~DocumentOpening() override;

    const std::string& path() const { return m_path; }
    const std::optional<std::string>& resolved() const { return m_resolved; }

    /// Finds out what the path stands for, then asks `mayRead`; reads it if so and hands on the result.
    void start(std::function<bool()> mayRead, std::function<void(OpeningResult)> done);

    void bringForward();
    /// Stops reading as soon as it can, and takes its window away.
    void cancel();

Q_SIGNALS:
    void cancelled();

private:
    void read(std::function<void(OpeningResult)> done);
    void showProgress();

    std::string m_path;
    std::optional<std::string> m_resolved;
    Scheduler& m_scheduler;
    RecoveryStore m_recovery;
    std::shared_ptr<ReadProgress> m_progress = std::make_shared<ReadProgress>();
    bool m_isEnded = false;
    std::unique_ptr<QDialog> m_window; ///< once the user has waited for it
    WhileAlive m_alive;
};

} // namespace quillon
