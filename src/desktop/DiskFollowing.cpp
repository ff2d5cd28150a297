#include "desktop/DiskFollowing.h"

#include "desktop/Background.h"
#include "desktop/DocumentRecovery.h"
#include "desktop/DocumentText.h"
#include "desktop/DocumentWindow.h"
#include "desktop/Questions.h"
#include "desktop/SaveJob.h"
#include "document/TouchedFiles.h"
#include "package/PackageFile.h"

#include <utility>

namespace quillon {

namespace {

constexpr double settlingTime = 0.2; ///< seconds in which another program's changes usually come to an end

bool isSaving(const FileState& state) {
    return std::holds_alternative<file::Saving>(state);
}

struct ReadFolder {
    Expected<PackageStamp, DiskFailure> stamp;
    Expected<ArticleFileDocument, PackageFailure> document;
};

/// Lets go of what was read once more, so that undo does not keep it twice.
void shareEqualAssets(ArticleFileDocument& read, const Assets& present) {
    Assets assets = *read.assets;
    for (auto& [key, bytes] : assets) {
        const auto found = present.find(key);
        if (found == present.end() || !(found->second == bytes)) {
            continue;
        }
        if (const auto origin = bytes.origin()) {
            found->second.noteOrigin(*origin);
        }
        bytes = found->second;
    }
    read.assets = std::move(assets);
}

} // namespace

DiskFollowing::DiskFollowing(Surroundings surroundings) : m_around(std::move(surroundings)) {
    QObject::connect(&m_watch, &DiskWatch::heard, &m_watch, [this] { lookSoon(); });
    if (const auto path = m_around.store.path()) {
        lookSoon();
    }
}

void DiskFollowing::lookSoon() {
    if (std::exchange(m_isDue, true)) {
        return;
    }
    m_around.scheduler.after(settlingTime, m_alive([this] {
                                 m_isDue = false;
                                 look();
                             }));
}

void DiskFollowing::look() {
    const FileState before = m_around.store.fileState();
    const auto path = pathOf(before);
    // After a save there is another look.
    if (!path || isSaving(before)) {
        return;
    }
    // What happens from here on is heard, and makes for another look.
    m_watch.watch(*path, m_seen);
    runOnDisk(
        m_around.scheduler, Lane::reads, m_alive, [path = *path] { return packageStamp(path); },
        [this, before](const Expected<PackageStamp, DiskFailure>& found) { takeLook(before, found); });
}

void DiskFollowing::takeLook(const FileState& before, const Expected<PackageStamp, DiskFailure>& found) {
    if (!(m_around.store.fileState() == before)) {
        // The look may be older than the save or the reload that came between.
        lookSoon();
        return;
    }
    if (!found && !isMissing(found.error())) {
        return;
    }
    if (PackageStamp seen = found.value_or(PackageStamp{}); seen != m_seen) {
        m_seen = std::move(seen);
        // There may be folders of assets that nobody watched so far.
        lookSoon();
    }
    m_around.store.noteDisk(found ? std::optional(*found) : std::nullopt);
    const auto* here = std::get_if<file::AtPath>(&m_around.store.fileState());
    if (found && here && here->stamp->changeTimes != found->changeTimes) {
        compareTouched(*found);
    }
    const auto* changed = std::get_if<file::ChangedOnDisk>(&m_around.store.fileState());
    if (found && !changed) {
        m_kept.reset();
    }
    if (changed && changed->lacksAssets && m_assets != m_seen) {
        readAssets();
    } else if (changed && !m_kept && !m_around.store.hasOwnChanges()) {
        read(Reason::follow);
        return;
    }
    showNotice();
}

void DiskFollowing::compareTouched(const PackageStamp& found) {
    const FileState before = m_around.store.fileState();
    const auto& here = std::get<file::AtPath>(before);
    runOnDisk(
        m_around.scheduler, Lane::reads, m_alive,
        [path = here.path, known = here.stamp, found, saved = m_around.store.savedDocument()] {
            return holdsStill(path, *known, found, saved);
        },
        [this, before, found](const Expected<bool, PackageFailure>& isSame) {
            if (!(m_around.store.fileState() == before)) {
                lookSoon();
            } else if (isSame) {
                m_around.store.noteTouched(found, *isSame);
                if (!*isSame) {
                    lookSoon();
                }
            }
        });
}

/// Gives a document that was recovered while its folder was away the pictures that are back now.
void DiskFollowing::readAssets() {
    const FileState before = m_around.store.fileState();
    m_assets = m_seen;
    runOnDisk(
        m_around.scheduler, Lane::reads, m_alive, [path = *pathOf(before)] { return readWhatThereIs(path); },
        [this, before](const Expected<ArticleFileDocument, PackageFailure>& found) {
            if (!(m_around.store.fileState() == before)) {
                m_assets.reset();
                lookSoon();
            } else if (found) {
                m_around.store.takeAssets(*found, "Take Files from Folder");
            }
        });
}

void DiskFollowing::revert() {
    if (!m_around.store.hasOwnChanges()) {
        read(Reason::revert);
        return;
    }
    const QString title = shownTitle(m_around.store.article().title);
    ask(&m_around.window,
        {.name = QStringLiteral("revertQuestion"),
         .text = QStringLiteral("Do you want to go back to the saved version of “%1”?").arg(title),
         .detail = QStringLiteral("Your changes since then go. You can bring them back with Undo."),
         .answers = {
             {QStringLiteral("Revert"), QMessageBox::AcceptRole, m_alive([this] { read(Reason::revert); })},
             {QStringLiteral("Cancel"), QMessageBox::RejectRole, {}}}});
}

void DiskFollowing::read(Reason reason) {
    const FileState before = m_around.store.fileState();
    const auto path = pathOf(before);
    if (!path || isSaving(before) || std::exchange(m_isReading, true)) {
        return;
    }
    runOnDisk(
        m_around.scheduler, Lane::reads, m_alive,
        [path = *path, present = m_around.store.document().assets] {
            auto stamp = packageStamp(path);
            auto document = openPackage(path);
            if (document) {
                shareEqualAssets(*document, *present);
            }
            return ReadFolder{std::move(stamp), std::move(document)};
        },
        [this, reason, before](ReadFolder folder) {
            m_isReading = false;
            takeRead(reason, before, folder.stamp, std::move(folder.document));
        });
}

void DiskFollowing::takeRead(Reason reason, const FileState& before,
                             const Expected<PackageStamp, DiskFailure>& stamp,
                             Expected<ArticleFileDocument, PackageFailure> document) {
    DocumentStore& store = m_around.store;
    const bool mayTake = reason != Reason::follow || !store.hasOwnChanges();
    if (!(store.fileState() == before) || !mayTake) {
        lookSoon();
        return;
    }
    if (stamp && document) {
        m_kept.reset();
        m_seen = *stamp;
        store.takeFromDisk(std::move(*document), *stamp,
                           reason == Reason::revert ? "Revert to Saved" : "Reload from Disk");
    } else if (reason == Reason::follow) {
        store.refuseDisk();
    } else {
        const std::string message =
            document ? stamp.error().message : document.error().message(*pathOf(before));
        tellFailure(&m_around.window, QStringLiteral("Could Not Open Article"),
                    QString::fromStdString(message + "."));
    }
    // Another program may be in the middle of its save: what it does next is heard.
    showNotice();
}

void DiskFollowing::showNotice() {
    const FileState& state = m_around.store.fileState();
    if (std::holds_alternative<file::Gone>(state)) {
        m_around.window.showNotice(
            QStringLiteral("The folder was moved or deleted."),
            {{QStringLiteral("Save"), m_around.save}, {QStringLiteral("Save As…"), m_around.saveAs}});
    } else if (std::holds_alternative<file::ChangedOnDisk>(state) && m_kept != m_seen) {
        m_around.window.showNotice(QStringLiteral("The article was changed by another program."),
                                   {{QStringLiteral("Reload"), m_alive([this] { read(Reason::reload); })},
                                    {QStringLiteral("Keep Mine"), m_alive([this] {
                                         m_kept = m_seen;
                                         m_around.store.refuseDisk();
                                         m_around.window.hideNotice();
                                     })}});
    } else {
        m_around.window.hideNotice();
    }
}

} // namespace quillon
