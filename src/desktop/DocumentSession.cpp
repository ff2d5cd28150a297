#include "desktop/DocumentSession.h"

#include "desktop/DocumentText.h"
#include "desktop/DocumentWindow.h"
#include "desktop/PackagePath.h"
#include "desktop/Questions.h"

#include <QStandardPaths>

#include <utility>

namespace quillon {

namespace {

std::string documentsFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation).toStdString();
}

} // namespace

DocumentSession::DocumentSession(const DocumentServices& services, std::unique_ptr<DocumentStore> store,
                                 std::unique_ptr<RecoveryCopy> copy, const QString& newName)
    : m_services(services), m_store(std::move(store)),
      m_window(std::make_unique<DocumentWindow>(*m_store, services.makeEditor, newName)),
      m_keeper(std::make_unique<RecoveryKeeper>(*m_store, std::move(copy), services.scheduler)) {
    m_saving = std::make_unique<DocumentSaving>(DocumentSaving::Surroundings{
        .store = *m_store,
        .window = *m_window,
        .scheduler = services.scheduler,
        .isOpenElsewhere = [this](const std::string& path) { return m_services.isOpenElsewhere(this, path); },
        .folderForDialogs = documentsFolder,
        .ended = [this](bool isSaved) { savingEnded(isSaved); },
    });
    m_following = std::make_unique<DiskFollowing>(DiskFollowing::Surroundings{
        .store = *m_store,
        .window = *m_window,
        .scheduler = services.scheduler,
        .save = [this] { save(); },
        .saveAs = [this] { saveAs(); },
    });
    m_keeper->onFailure = [this](const std::optional<DiskFailure>& failure) {
        m_window->showWarning(failure ? QStringLiteral("No recovery copy can be kept: ") +
                                            QString::fromStdString(failure->message)
                                      : QString());
    };
    connectWindow();
    m_window->setRecentDocuments(services.recents.documents());
}

DocumentSession::~DocumentSession() = default;

void DocumentSession::connectWindow() {
    DocumentWindow* window = m_window.get();
    RecentDocuments* recents = &m_services.recents;
    connect(window, &DocumentWindow::saveRequested, this, &DocumentSession::save);
    connect(window, &DocumentWindow::saveAsRequested, this, &DocumentSession::saveAs);
    connect(window, &DocumentWindow::revertRequested, this, &DocumentSession::revert);
    connect(window, &DocumentWindow::closeRequested, this, &DocumentSession::close);
    connect(window, &DocumentWindow::activated, this, [this] { m_following->lookSoon(); });
    connect(window, &DocumentWindow::recentRequested, recents, &RecentDocuments::look);
    connect(window, &DocumentWindow::clearRecentRequested, recents, &RecentDocuments::clear);
    connect(recents, &RecentDocuments::changed, window,
            [window, recents] { window->setRecentDocuments(recents->documents()); });
}

void DocumentSession::savingEnded(bool isSaved) {
    if (isSaved) {
        m_services.recents.add(*m_store->path());
    }
    m_following->lookSoon();
}

void DocumentSession::close() {
    review([this](bool mayGo) {
        if (mayGo) {
            closeForGood();
        }
    });
}

bool DocumentSession::mayGo() const {
    return !m_isReviewing && !m_saving->isBusy() &&
           (!m_store->isEdited() || m_givenUp == m_store->document());
}

void DocumentSession::review(std::function<void(bool)> done) {
    if (m_isReviewing || openQuestion(m_window.get())) {
        m_window->bringForward();
        done(false);
        return;
    }
    m_isReviewing = true;
    m_saving->whenIdle(m_alive([this, done = std::move(done)] {
        if (!m_store->isEdited() || m_givenUp == m_store->document()) {
            endReview(done, true);
        } else {
            askToSave(done);
        }
    }));
}

void DocumentSession::askToSave(const std::function<void(bool)>& done) {
    m_window->bringForward();
    const auto save = [this, done] {
        m_saving->save([this, done](bool isSaved) {
            m_isReviewing = false;
            if (isSaved) {
                // There may be edits that the save did not take in.
                review(done);
            } else {
                done(false);
            }
        });
    };
    const auto giveUp = [this, done] {
        m_givenUp = m_store->document();
        endReview(done, true);
    };
    ask(m_window.get(),
        {.name = QStringLiteral("closeQuestion"),
         .text = QStringLiteral("Do you want to save the changes made to “%1”?")
                     .arg(shownTitle(m_store->article().title)),
         .detail = (m_store->path() ? shownPath(*m_store->path()) + QStringLiteral(": your")
                                    : QStringLiteral("Your")) +
                   QStringLiteral(" changes are lost if you don’t save them."),
         .answers = {{QStringLiteral("Save"), QMessageBox::AcceptRole, m_alive(save)},
                     {QStringLiteral("Don’t Save"), QMessageBox::DestructiveRole, m_alive(giveUp)},
                     {QStringLiteral("Cancel"), QMessageBox::RejectRole,
                      m_alive([this, done] { endReview(done, false); })}}});
}

void DocumentSession::endReview(const std::function<void(bool)>& done, bool mayGo) {
    m_isReviewing = false;
    done(mayGo);
}

void DocumentSession::closeForGood() {
    m_keeper->close();
    m_window->closeForGood();
    Q_EMIT closed();
}

void DocumentSession::takeRecovered(const ArticleDocument& article, LeftRecoveryCopy& left) {
    m_store->edit({"Recover Changes", {}}, article);
    if (m_keeper->flush()) {
        left.discard();
    }
}

} // namespace quillon
