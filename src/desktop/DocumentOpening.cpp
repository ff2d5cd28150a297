#include "desktop/DocumentOpening.h"

#include "desktop/Background.h"
#include "desktop/DocumentText.h"
#include "desktop/PackagePath.h"
#include "package/PackageFile.h"
#include "package/PackageStamp.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include <cerrno>
#include <chrono>
#include <utility>

namespace quillon {

namespace {

constexpr double patience = 0.3; ///< seconds before the window shows
constexpr std::chrono::milliseconds refreshTime(100);

class ProgressWindow : public QDialog {
public:
    ProgressWindow(const std::string& path, std::shared_ptr<const ReadProgress> progress)
        : m_progress(std::move(progress)) {
        const QString text =
            QStringLiteral("Opening “%1”…").arg(path == "/" ? shownPath(path) : shownFolderName(path));
        setObjectName(QStringLiteral("openingWindow"));
        setAccessibleName(text);
        setWindowTitle(text);
        auto* column = new QVBoxLayout(this);
        for (QLabel* label : {new QLabel(shownPath(path), this), &m_bytes}) {
            label->setTextFormat(Qt::PlainText);
            column->addWidget(label);
        }
        m_bytes.setObjectName(QStringLiteral("bytesRead"));
        auto* bar = new QProgressBar(this);
        bar->setObjectName(QStringLiteral("progress"));
        bar->setAccessibleName(text);
        bar->setRange(0, 0); // how much there will be is not known
        column->addWidget(bar);
        auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        column->addWidget(buttons);
        connect(&m_timer, &QTimer::timeout, this, [this] { refresh(); });
        m_timer.start(refreshTime);
        refresh();
    }

private:
    void refresh() { m_bytes.setText(QStringLiteral("%1 read").arg(shownSize(m_progress->bytesRead))); }

    std::shared_ptr<const ReadProgress> m_progress;
    QLabel m_bytes;
    QTimer m_timer;
};

std::optional<LeftRecoveryCopy> leftCopyOf(const std::string& path, const RecoveryStore& recovery) {
    for (LeftRecoveryCopy& left : recovery.leftCopies()) {
        if (left.info().packagePath == path) {
            return std::move(left);
        }
    }
    return std::nullopt;
}

/// Whether a folder stands there that is no package: then nobody needs to walk through all it holds.
bool lacksArticle(const std::string& path, FileSystem& files) {
    const auto root = files.openRoot(path);
    if (!root) {
        return false;
    }
    const auto article = files.statusAt(root->number(), std::string(articleFileName));
    return !article && article.error() == ENOENT;
}

} // namespace

OpeningResult readForOpening(const std::string& path, const std::string& shownPath,
                             const RecoveryStore& recovery, ReadProgress& progress) {
    ProgressFileSystem files(systemFileSystem(), progress);
    if (lacksArticle(path, files)) {
        return unexpected(PackageFailure{PackageFailure::Code::fileReadNoSuchFile});
    }
    // First the stamp: what is written while the package is read shows as a change later.
    auto stamp = packageStamp(path, files);
    auto document = openPackage(shownPath, files);
    if (!document) {
        return unexpected(std::move(document.error()));
    }
    return OpenedPackage{path, std::move(stamp).value_or(PackageStamp{}), std::move(*document),
                         leftCopyOf(path, recovery)};
}

std::string openAdvice(const PackageFailure& failure) {
    if (std::holds_alternative<PackageFailure::Code>(failure.cause)) {
        return "An article is a folder with the file article.json in it: choose that folder.";
    }
    if (!std::holds_alternative<DiskFailure>(failure.cause)) {
        return "Correct this spot in a text editor, or open another copy of the article.";
    }
    const int error = std::get<DiskFailure>(failure.cause).errorNumber;
    return error == EACCES || error == EPERM
               ? "Ask whoever owns the file for permission to read it, or open another copy of the article."
               : "Open it once more, or open another copy of the article.";
}

DocumentOpening::DocumentOpening(std::string path, Scheduler& scheduler, const RecoveryStore& recovery)
    : m_path(std::move(path)), m_scheduler(scheduler), m_recovery(recovery) {}

DocumentOpening::~DocumentOpening() {
    m_progress->isCancelled = true;
}

void DocumentOpening::cancel() {
    m_progress->isCancelled = true;
    m_isEnded = true;
    if (m_window) {
        m_window->hide();
    }
}

void DocumentOpening::start(std::function<bool()> mayRead, std::function<void(OpeningResult)> done) {
    m_scheduler.after(patience, m_alive([this] { showProgress(); }));
    const auto resolve = [path = m_path] {
        const std::string folder = packageFolder(path);
        return std::pair(folder, resolvedPath(folder));
    };
    runOnDisk(m_scheduler, Lane::reads, m_alive, resolve,
              [this, mayRead = std::move(mayRead), done = std::move(done)](const auto& paths) {
                  m_path = paths.first;
                  m_resolved = paths.second;
                  if (!m_isEnded && mayRead()) {
                      read(done);
                  }
              });
}

void DocumentOpening::read(std::function<void(OpeningResult)> done) {
    runOnDisk(
        m_scheduler, Lane::reads, m_alive,
        [path = *m_resolved, named = m_path, recovery = m_recovery, progress = m_progress] {
            return readForOpening(path, named, recovery, *progress);
        },
        [this, done = std::move(done)](OpeningResult result) {
            if (!m_isEnded) {
                done(std::move(result));
            }
        });
}

void DocumentOpening::showProgress() {
    if (m_isEnded) {
        return;
    }
    m_window = std::make_unique<ProgressWindow>(m_path, m_progress);
    connect(m_window.get(), &QDialog::rejected, this, &DocumentOpening::cancelled);
    m_window->show();
}

void DocumentOpening::bringForward() {
    if (m_window) {
        m_window->raise();
        m_window->activateWindow();
    }
}

} // namespace quillon
