// What DocumentController does with the copies that a crash left.
#include "desktop/Background.h"
#include "desktop/DocumentController.h"
#include "desktop/DocumentText.h"
#include "desktop/DocumentWindow.h"
#include "desktop/Questions.h"
#include "desktop/RecoveryOffer.h"

#include <algorithm>
#include <map>
#include <utility>

namespace quillon {

void DocumentController::offer(std::vector<LeftRecoveryCopy> left) {
    m_offer = std::make_unique<RecoveryOffer>(
        std::move(left), [this](std::vector<LeftRecoveryCopy> copies) { recover(std::move(copies)); });
    connect(m_offer.get(), &QDialog::finished, this, [this, held = hold()]() mutable {
        m_offer.release()->deleteLater();
        if (m_sessions.empty() && m_openings.empty() && m_recovering == 0 && !m_isQuitting) {
            newDocument();
        }
        held.reset();
    });
    m_offer->show();
}

void DocumentController::recover(std::vector<LeftRecoveryCopy> copies) {
    std::sort(copies.begin(), copies.end(), [](const LeftRecoveryCopy& left, const LeftRecoveryCopy& right) {
        return left.info().time > right.info().time;
    });
    // Those of one package follow each other, so that the latest ends on top.
    std::map<std::string, std::shared_ptr<RecoveryQueue>> queues;
    std::vector<std::shared_ptr<RecoveryQueue>> all;
    for (LeftRecoveryCopy& copy : copies) {
        const auto& path = copy.info().packagePath;
        auto queue = path ? queues[*path] : nullptr;
        if (!queue) {
            queue = all.emplace_back(std::make_shared<RecoveryQueue>());
        }
        if (path) {
            queues[*path] = queue;
        }
        queue->push_back(std::move(copy));
    }
    for (const auto& queue : all) {
        recoverNext(queue);
    }
}

void DocumentController::recoverNext(const std::shared_ptr<RecoveryQueue>& queue) {
    if (queue->empty()) {
        return;
    }
    const auto shared = std::make_shared<LeftRecoveryCopy>(std::move(queue->back()));
    queue->pop_back();
    ++m_recovering;
    runOnDisk(
        m_scheduler, Lane::reads, m_alive, [shared] { return readRecovered(*shared); },
        [this, shared, queue, held = hold()](Expected<RecoveredDocument, DiskFailure> recovered) {
            --m_recovering;
            finishRecovery(*shared, std::move(recovered));
            recoverNext(queue);
        });
}

void DocumentController::finishRecovery(LeftRecoveryCopy& left,
                                        Expected<RecoveredDocument, DiskFailure> recovered) {
    if (!recovered) {
        tell(nullptr, QStringLiteral("Could Not Recover Article"),
             QString::fromStdString(recovered.error().message) +
                 QStringLiteral(".\nThe copy stays where it is."));
        return;
    }
    const auto path = pathOf(recovered->state);
    if (DocumentSession* open = path ? sessionAt(*path) : nullptr) {
        open->takeRecovered(recovered->document.article, left);
        open->window().bringForward();
        return;
    }
    auto copy = left.adopt(recovered->document.article);
    DocumentSession& session =
        add(std::make_unique<DocumentStore>(std::move(recovered->document), std::move(recovered->state),
                                            clock(), std::move(recovered->saved)),
            std::move(copy));
    if (recovered->lackOfAssets) {
        tell(&session.window(),
             QStringLiteral("The article was recovered without its pictures and other files."),
             QString::fromStdString(*recovered->lackOfAssets) + QLatin1Char('.'));
    }
}

void DocumentController::offerLeft(DocumentSession& session, LeftRecoveryCopy left) {
    const auto shared = std::make_shared<LeftRecoveryCopy>(std::move(left));
    const RecoveryInfo& info = shared->info();
    ask(&session.window(),
        {.name = QStringLiteral("leftCopyQuestion"),
         .text = QStringLiteral("There are changes to “%1” that were not saved.").arg(shownTitle(info.title)),
         .detail = QStringLiteral(
                       "Quillon ended before they were saved, last on %1. Recovering them can be undone.")
                       .arg(shownTime(info.time)),
         .answers = {{QStringLiteral("Recover"), QMessageBox::AcceptRole,
                      [this, &session, shared] {
                          recoverInto(session, shared);
                      }},
                     {QStringLiteral("Discard"), QMessageBox::DestructiveRole,
                      [shared] {
                          shared->discard();
                      }},
                     {QStringLiteral("Decide Later"), QMessageBox::RejectRole, {}}}});
}

void DocumentController::recoverInto(DocumentSession& session,
                                     const std::shared_ptr<LeftRecoveryCopy>& left) {
    runOnDisk(
        m_scheduler, Lane::reads, m_alive, [left] { return left->article(); },
        [this, session = QPointer(&session), left](const Expected<ArticleDocument, DiskFailure>& article) {
            if (session && article) {
                session->takeRecovered(*article, *left);
            } else if (session) {
                tell(&session->window(), QStringLiteral("Could Not Recover Article"),
                     QString::fromStdString(article.error().message) + QLatin1Char('.'));
            }
        });
}

} // namespace quillon
