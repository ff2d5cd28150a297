#include "desktop/DocumentController.h"

#include "base/Time.h"
#include "desktop/Background.h"
#include "desktop/DeleteAtRest.h"
#include "desktop/DocumentText.h"
#include "desktop/DocumentWindow.h"
#include "desktop/PackagePath.h"
#include "desktop/Questions.h"
#include "desktop/RecoveryOffer.h"
#include "desktop/SaveDialog.h"
#include "package/BlankArticle.h"
#include "package/NewArticle.h"

#include <QStandardPaths>

#include <algorithm>
#include <utility>

namespace quillon {

DocumentController::DocumentController(Scheduler& scheduler, Settings& settings, MakeEditor makeEditor,
                                       const std::string& recoveryFolder)
    : m_scheduler(scheduler), m_makeEditor(std::move(makeEditor)), m_recovery(recoveryFolder),
      m_recents(settings, scheduler) {}

DocumentController::~DocumentController() = default;

std::shared_ptr<void> DocumentController::hold() {
    std::shared_ptr<void> held = m_hold.lock();
    if (!held) {
        held = std::shared_ptr<void>(this, [controller = QPointer(this)](void*) {
            if (!controller) {
                return;
            }
            const auto report = [controller] {
                if (controller && controller->m_hold.expired()) {
                    Q_EMIT controller->nothingLeft();
                }
            };
            QMetaObject::invokeMethod(controller, report, Qt::QueuedConnection);
        });
        m_hold = held;
    }
    return held;
}

void DocumentController::start(const std::vector<std::string>& packages) {
    runOnDisk(
        m_scheduler, Lane::recovery, m_alive, [recovery = m_recovery] { return recovery.leftCopies(); },
        [this, packages, held = hold()](std::vector<LeftRecoveryCopy> left) {
            if (packages.empty() && left.empty()) {
                newDocument();
            }
            for (const std::string& package : packages) {
                open(package);
            }
            if (!left.empty()) {
                offer(std::move(left));
            }
        });
}

std::function<double()> DocumentController::clock() const {
    return [&scheduler = m_scheduler] {
        return scheduler.now();
    };
}

DocumentSession& DocumentController::newDocument() {
    return newDocument(makeNewDocument(makeBlankArticle(static_cast<std::int64_t>(wallClockSeconds()))));
}

DocumentSession& DocumentController::newDocument(ArticleFileDocument document) {
    return add(std::make_unique<DocumentStore>(std::move(document), file::NeverSaved{}, clock()),
               m_recovery.newCopy());
}

DocumentSession& DocumentController::add(std::unique_ptr<DocumentStore> store,
                                         std::unique_ptr<RecoveryCopy> copy) {
    QString newName = QStringLiteral("Untitled");
    if (!store->path() && ++m_newDocuments > 1) {
        newName += QStringLiteral(" %1").arg(m_newDocuments);
    }
    const DocumentServices services{
        .scheduler = m_scheduler,
        .makeEditor = m_makeEditor,
        .recents = m_recents,
        .isOpenElsewhere =
            [this](const QObject* asking, const std::string& path) {
                const DocumentSession* open = sessionAt(path);
                return open && open != asking;
            },
    };
    auto made = std::make_unique<DocumentSession>(services, std::move(store), std::move(copy), newName);
    DocumentSession* session = made.get();
    m_sessions.push_back({std::move(made), hold()});
    const DocumentWindow* window = &session->window();
    connect(window, &DocumentWindow::newRequested, this, [this] { newDocument(); });
    connect(window, &DocumentWindow::openRequested, this,
            [this, session] { openWithDialog(&session->window()); });
    connect(window, &DocumentWindow::openPathRequested, this,
            [this, session](const std::string& path) { open(path, &session->window()); });
    connect(window, &DocumentWindow::quitRequested, this, &DocumentController::quit);
    connect(session, &DocumentSession::closed, this, [this, session] { remove(session); });
    session->window().show();
    return *session;
}

void DocumentController::remove(DocumentSession* session) {
    const auto entry = std::find_if(m_sessions.begin(), m_sessions.end(),
                                    [&](const Session& each) { return each.session.get() == session; });
    if (entry != m_sessions.end()) {
        // A gigabyte of assets takes a tenth of a second to be let go of.
        auto last = std::make_shared<ArticleFileDocument>(session->store().document());
        connect(session, &QObject::destroyed, this, [this, last = std::move(last)]() mutable {
            m_scheduler.inBackground(Lane::pages, [held = std::move(last)]() mutable {
                held.reset();
                return std::function<void()>([] {});
            });
        });
        // Its window may be in the middle of an event.
        deleteAtRest(entry->session.release());
        m_sessions.erase(entry);
    }
}

std::vector<DocumentSession*> DocumentController::sessions() const {
    std::vector<DocumentSession*> list;
    for (const Session& each : m_sessions) {
        list.push_back(each.session.get());
    }
    return list;
}

std::vector<DocumentWindow*> DocumentController::windows() const {
    std::vector<DocumentWindow*> list;
    for (const Session& each : m_sessions) {
        list.push_back(&each.session->window());
    }
    return list;
}

DocumentSession* DocumentController::sessionAt(const std::string& path) const {
    const auto entry = std::find_if(m_sessions.begin(), m_sessions.end(), [&](const Session& each) {
        return each.session->store().path() == path;
    });
    return entry == m_sessions.end() ? nullptr : entry->session.get();
}

void DocumentController::openWithDialog(QWidget* asker) {
    const auto& recent = m_recents.documents();
    const std::string folder =
        recent.empty() ? QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation).toStdString()
                       : parentFolder(recent.front().path);
    askForPackage(asker, folder,
                  [this, asker = QPointer(asker)](const std::string& path) { open(path, asker); });
}

void DocumentController::open(const std::string& path, QWidget* asker) {
    auto made = std::make_unique<DocumentOpening>(absolutePath(path), m_scheduler, m_recovery);
    DocumentOpening* opening = made.get();
    m_openings.push_back({std::move(made), hold()});
    connect(opening, &DocumentOpening::cancelled, this, [this, opening] { endOpening(opening); });
    opening->start([this, opening] { return mayRead(opening); },
                   [this, opening, asker = QPointer(asker)](OpeningResult result) {
                       finishOpening(opening, std::move(result), asker);
                   });
}

bool DocumentController::mayRead(const DocumentOpening* opening) {
    const auto& path = opening->resolved();
    if (DocumentSession* open = sessionAt(*path)) {
        open->window().bringForward();
        endOpening(opening);
        return false;
    }
    for (const Opening& each : m_openings) {
        if (each.opening.get() != opening && each.opening->resolved() == path) {
            each.opening->bringForward();
            endOpening(opening);
            return false;
        }
    }
    return true;
}

void DocumentController::endOpening(const DocumentOpening* opening) {
    const auto entry = std::find_if(m_openings.begin(), m_openings.end(),
                                    [&](const Opening& each) { return each.opening.get() == opening; });
    if (entry != m_openings.end()) {
        entry->opening->cancel();
        entry->opening.release()->deleteLater();
        m_openings.erase(entry);
    }
}

void DocumentController::finishOpening(DocumentOpening* opening, OpeningResult result, QWidget* asker) {
    const std::string path = opening->path();
    const std::shared_ptr<void> held = hold();
    endOpening(opening);
    if (!result) {
        tell(asker, QStringLiteral("Could Not Open Article"),
             QString::fromStdString(result.error().message(path) + ".\n" + openAdvice(result.error())));
        m_recents.look();
        return;
    }
    if (DocumentSession* open = sessionAt(result->path)) {
        // A recovery or a save to this place was faster.
        open->window().bringForward();
        return;
    }
    m_recents.add(result->path);
    DocumentSession& session =
        add(std::make_unique<DocumentStore>(std::move(result->document),
                                            file::AtPath{result->path, std::move(result->stamp)}, clock()),
            m_recovery.newCopy());
    if (result->left) {
        offerLeft(session, std::move(*result->left));
    }
}

void DocumentController::tell(QWidget* asker, const QString& text, const QString& detail) {
    Q_EMIT failed(detail);
    tellFailure(asker, text, detail, [held = hold()] {});
}

void DocumentController::flushRecovery() {
    for (const Session& each : m_sessions) {
        each.session->flushRecovery();
    }
}

void DocumentController::quit() {
    if (std::exchange(m_isQuitting, true)) {
        return;
    }
    const std::shared_ptr<void> held = hold();
    while (!m_openings.empty()) {
        endOpening(m_openings.front().opening.get());
    }
    m_offer.reset();
    reviewNext();
}

void DocumentController::reviewNext() {
    const auto all = sessions();
    const auto next =
        std::find_if(all.begin(), all.end(), [](const DocumentSession* each) { return !each->mayGo(); });
    if (next != all.end()) {
        (*next)->review([this](bool mayGo) {
            if (mayGo) {
                // Looks at all again: a document may have been edited while others were asked about.
                reviewNext();
            } else {
                stopQuitting();
            }
        });
        return;
    }
    for (DocumentSession* each : all) {
        each->closeForGood();
    }
    m_isQuitting = false;
}

void DocumentController::stopQuitting() {
    m_isQuitting = false;
    for (const Session& each : m_sessions) {
        each.session->keepChanges();
    }
}

} // namespace quillon
