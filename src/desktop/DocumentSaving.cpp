#include "desktop/DocumentSaving.h"

#include "desktop/Background.h"
#include "desktop/DocumentText.h"
#include "desktop/DocumentWindow.h"
#include "desktop/PackagePath.h"
#include "desktop/Questions.h"
#include "desktop/SaveDialog.h"

#include <algorithm>
#include <utility>

namespace quillon {

namespace {

constexpr double patience = 0.3; ///< seconds before a save shows

/// What is wrong with a place, where it cannot be taken.
struct Refusal {
    SavePlaceKind kind;
    const char* detail;
};

constexpr Refusal refusals[] = {
    {SavePlaceKind::foreignFolder,
     "This folder holds other files, and an article would take their place. Choose a new name, or an empty "
     "folder."},
    {SavePlaceKind::notAFolder, "Something else has this name. An article is a folder: choose a new name."},
    {SavePlaceKind::insidePackage,
     "This place is inside another article, whose next save would remove it. Choose a place outside."},
    {SavePlaceKind::noParent, "The folder that is to hold the article does not exist. Choose another one."},
};

QString countOfFiles(std::size_t files) {
    return files == 1 ? QStringLiteral("1 file") : QStringLiteral("%1 files").arg(files);
}

/// How many of the files in a folder are none of the document's.
std::size_t foreignFiles(const PackageStamp& stamp, const Assets& assets) {
    return static_cast<std::size_t>(
        std::count_if(stamp.files.begin(), stamp.files.end(), [&](const auto& file) {
            return file.first != articleFileName && !assets.contains(file.first);
        }));
}

} // namespace

DocumentSaving::DocumentSaving(Surroundings surroundings) : m_around(std::move(surroundings)) {}

void DocumentSaving::save(Done done) {
    if (m_phase == Phase::writing) {
        m_again = true;
        m_doneAgain.push_back(std::move(done));
        return;
    }
    m_done.push_back(std::move(done));
    if (m_phase == Phase::asking) {
        return;
    }
    start();
}

void DocumentSaving::start() {
    m_phase = Phase::asking;
    const FileState& state = m_around.store.fileState();
    if (std::holds_alternative<file::NeverSaved>(state)) {
        askForPlace();
    } else if (std::holds_alternative<file::ChangedOnDisk>(state)) {
        lookAtConflict();
    } else if (const auto* here = std::get_if<file::AtPath>(&state)) {
        write({here->path, *here->stamp, m_around.store.savedDocument()});
    } else {
        write({*pathOf(state)});
    }
}

void DocumentSaving::saveAs(Done done) {
    if (m_phase == Phase::writing) {
        whenIdle([this, done = std::move(done)]() mutable { saveAs(std::move(done)); });
        return;
    }
    m_done.push_back(std::move(done));
    if (m_phase == Phase::idle) {
        askForPlace();
    }
}

void DocumentSaving::whenIdle(std::function<void()> action) {
    if (!isBusy()) {
        action();
        return;
    }
    m_whenIdle.push_back(std::move(action));
}

void DocumentSaving::askForPlace() {
    m_phase = Phase::asking;
    const auto path = m_around.store.path();
    const std::string name = path ? folderName(*path) : proposedFolderName(m_around.store.article().title);
    const std::string folder = path ? parentFolder(*path) : m_around.folderForDialogs();
    askForSavePlace(m_around.window, folder, name, [this](std::optional<std::string> chosen) {
        if (chosen) {
            judge(*chosen);
        } else {
            end(false);
        }
    });
}

void DocumentSaving::judge(const std::string& path) {
    struct Judged {
        std::string path;
        SavePlace place;
    };
    runOnDisk(
        m_around.scheduler, Lane::saves, m_alive,
        [path] {
            std::string resolved = resolvedPath(absolutePath(path));
            const SavePlace place = judgeSavePlace(resolved);
            return Judged{std::move(resolved), place};
        },
        [this](const Judged& judged) { takePlace(judged.path, judged.place); });
}

void DocumentSaving::takePlace(const std::string& path, const SavePlace& place) {
    if (path == m_around.store.path()) {
        // The document's own folder: an ordinary save, with all its questions.
        start();
        return;
    }
    const QString text = QStringLiteral("Could Not Save Article");
    if (m_around.isOpenElsewhere(path)) {
        refusePlace(text, shownPath(path) + QStringLiteral(": this article is open in another window. Close "
                                                           "it first, or choose another place."));
        return;
    }
    for (const Refusal& refusal : refusals) {
        if (refusal.kind == place.kind) {
            refusePlace(text, shownPath(path) + QStringLiteral(": ") + QString::fromUtf8(refusal.detail));
            return;
        }
    }
    if (place.kind == SavePlaceKind::package) {
        askToReplace(path, place.stamp);
        return;
    }
    write({path, place.kind == SavePlaceKind::free ? std::nullopt : std::optional(place.stamp)});
}

void DocumentSaving::refusePlace(const QString& text, const QString& detail) {
    tellFailure(&m_around.window, text, detail, m_alive([this] { askForPlace(); }));
}

void DocumentSaving::askToReplace(const std::string& path, const PackageStamp& stamp) {
    ask(&m_around.window,
        {.name = QStringLiteral("replaceQuestion"),
         .text = QStringLiteral("“%1” already exists. Do you want to replace it?").arg(shownFolderName(path)),
         .detail = shownPath(path) + QStringLiteral(": everything in this folder is removed, %1.")
                                         .arg(countOfFiles(stamp.files.size())),
         .answers = {{QStringLiteral("Cancel"), QMessageBox::RejectRole, m_alive([this] { end(false); })},
                     {QStringLiteral("Replace"), QMessageBox::DestructiveRole, m_alive([this, path, stamp] {
                          write({path, stamp});
                      })}}});
}

void DocumentSaving::lookAtConflict() {
    m_phase = Phase::asking;
    runOnDisk(
        m_around.scheduler, Lane::saves, m_alive,
        [path = *m_around.store.path()] { return judgeFolder(path); },
        [this](const SavePlace& place) { settleConflict(place); });
}

void DocumentSaving::settleConflict(const SavePlace& place) {
    switch (place.kind) {
    case SavePlaceKind::free:
        write({*m_around.store.path(), std::nullopt});
        return;
    case SavePlaceKind::emptyFolder:
        write({*m_around.store.path(), place.stamp});
        return;
    case SavePlaceKind::package:
        if (lacksAssetsOf(place.stamp)) {
            refuseFolder(QStringLiteral("the article came back without the pictures and other files in this "
                                        "folder, and a save would remove them."));
            return;
        }
        askAboutConflict(place.stamp);
        return;
    default:
        refuseFolder(QStringLiteral("what stands there now is no article, and a save would remove it."));
    }
}

bool DocumentSaving::lacksAssetsOf(const PackageStamp& stamp) const {
    const auto* changed = std::get_if<file::ChangedOnDisk>(&m_around.store.fileState());
    const Assets& assets = *m_around.store.document().assets;
    return changed && changed->lacksAssets && assets.empty() && foreignFiles(stamp, assets) > 0;
}

void DocumentSaving::askAboutConflict(const PackageStamp& stamp) {
    const std::string path = *m_around.store.path();
    const std::size_t files = foreignFiles(stamp, *m_around.store.document().assets);
    QString detail = shownPath(path) + QStringLiteral(": saving removes what the other program wrote there");
    if (files > 0) {
        detail += QStringLiteral(", with %1 that this article never had").arg(countOfFiles(files));
    }
    ask(&m_around.window,
        {.name = QStringLiteral("conflictQuestion"),
         .text = QStringLiteral("The folder was changed by another program since it was opened."),
         .detail = detail + QLatin1Char('.'),
         .answers = {
             {QStringLiteral("Cancel"), QMessageBox::RejectRole, m_alive([this] { end(false); })},
             {QStringLiteral("Save As…"), QMessageBox::AcceptRole, m_alive([this] { askForPlace(); })},
             {QStringLiteral("Save Anyway"), QMessageBox::DestructiveRole, m_alive([this, path, stamp] {
                  write({path, stamp});
              })}}});
}

void DocumentSaving::refuseFolder(const QString& reason) {
    ask(&m_around.window,
        {.name = QStringLiteral("refusal"),
         .text = QStringLiteral("The article cannot be saved in its folder."),
         .detail = shownPath(*m_around.store.path()) + QStringLiteral(": ") + reason,
         .answers = {
             {QStringLiteral("Cancel"), QMessageBox::RejectRole, m_alive([this] { end(false); })},
             {QStringLiteral("Save As…"), QMessageBox::AcceptRole, m_alive([this] { askForPlace(); })}}});
}

void DocumentSaving::write(SaveOrder order) {
    m_phase = Phase::writing;
    const int number = ++m_number;
    const std::string path = order.path;
    const ArticleFileDocument document = m_around.store.beginSaving(path);
    m_around.scheduler.after(patience, m_alive([this, number] {
                                 if (m_phase == Phase::writing && m_number == number) {
                                     m_around.window.showStatus(QStringLiteral("Saving…"));
                                 }
                             }));
    runOnDisk(
        m_around.scheduler, Lane::saves, m_alive,
        [document, order = std::move(order)] { return runSave(document, order); },
        [this, path](SaveOutcome outcome) { finish(path, std::move(outcome)); });
}

void DocumentSaving::finish(const std::string& path, SaveOutcome outcome) {
    m_around.window.showStatus({});
    if (auto* stamp = std::get_if<PackageStamp>(&outcome)) {
        m_around.store.finishSaving(std::move(*stamp));
        end(true);
        return;
    }
    m_around.store.abandonSaving();
    if (const auto* conflict = std::get_if<SaveConflict>(&outcome)) {
        if (path == m_around.store.path()) {
            m_around.store.noteDisk(conflict->found);
            lookAtConflict();
        } else {
            m_phase = Phase::asking;
            judge(path);
        }
        return;
    }
    tell(path, std::get<PackageFailure>(outcome));
    end(false);
}

void DocumentSaving::tell(const std::string& path, const PackageFailure& failure) {
    tellFailure(&m_around.window, QStringLiteral("Could Not Save Article"),
                QString::fromStdString(failure.message(path) + ".\n" + saveAdvice(failure)));
}

void DocumentSaving::end(bool isSaved) {
    m_phase = Phase::idle;
    std::vector<Done> done = std::exchange(m_done, {});
    std::vector<Done> following = std::exchange(m_doneAgain, {});
    const bool isFollowed = std::exchange(m_again, false) && isSaved;
    if (isFollowed) {
        m_done = std::move(following);
    } else {
        done.insert(done.end(), following.begin(), following.end());
    }
    m_around.ended(isSaved);
    if (isFollowed) {
        start();
    }
    for (const Done& each : done) {
        if (each) {
            each(isSaved);
        }
    }
    while (!isBusy() && !m_whenIdle.empty()) {
        const auto action = std::move(m_whenIdle.front());
        m_whenIdle.erase(m_whenIdle.begin());
        action();
    }
}

} // namespace quillon
