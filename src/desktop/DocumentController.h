#pragma once

#include "desktop/DocumentOpening.h"
#include "desktop/DocumentRecovery.h"
#include "desktop/DocumentSession.h"

#include <QObject>
#include <QPointer>

#include <memory>
#include <string>
#include <vector>

class QWidget;

namespace quillon {

class RecoveryOffer;

/// All open documents of the program: makes, opens, recovers and closes them.
class DocumentController : public QObject {
    Q_OBJECT

public:
    /// `makeEditor` makes the middle of each window; `recoveryFolder` is where the recovery copies stand.
    DocumentController(Scheduler& scheduler, Settings& settings, MakeEditor makeEditor,
                       const std::string& recoveryFolder);
    ~DocumentController() override;

    /// Begins the program's work: offers what a crash left, and opens `packages`. Where there is neither, a
    /// new document.
    void start(const std::vector<std::string>& packages);

    /// A new article in a window of its own: a blank one, or a document never saved.
    DocumentSession& newDocument();
    DocumentSession& newDocument(ArticleFileDocument document);

    /// Opens the package at `path`, in the background; one that is open already comes to the front. What goes
    /// wrong is told on `asker`, or in a window of its own.
    void open(const std::string& path, QWidget* asker = nullptr);

    /// Lets the user choose a package to open.
    void openWithDialog(QWidget* asker);

    /// Closes all documents, after a question for each that has changes. One answer of Cancel keeps all open.
    void quit();

    /// Brings all recovery copies up to date at once, for a program that must end now.
    void flushRecovery();

    std::vector<DocumentSession*> sessions() const;
    std::vector<DocumentWindow*> windows() const;
    RecentDocuments& recents() { return m_recents; }

Q_SIGNALS:
    /// Something could not be opened or recovered; the user is told, too.
    void failed(const QString& detail);
    /// The last window has gone, and nothing is on its way.
    void nothingLeft();

private:
    struct Opening {
        std::unique_ptr<DocumentOpening> opening;
        std::shared_ptr<void> hold;
    };
    struct Session {
        std::unique_ptr<DocumentSession> session;
        std::shared_ptr<void> hold;
    };

    /// The program goes on as long as one of these is held.
    std::shared_ptr<void> hold();

    DocumentSession& add(std::unique_ptr<DocumentStore> store, std::unique_ptr<RecoveryCopy> copy);
    void remove(DocumentSession* session);
    DocumentSession* sessionAt(const std::string& path) const;
    std::function<double()> clock() const;

    bool mayRead(const DocumentOpening* opening);
    void finishOpening(DocumentOpening* opening, OpeningResult result, QWidget* asker);
    void endOpening(const DocumentOpening* opening);
    void tell(QWidget* asker, const QString& text, const QString& detail);

    void offer(std::vector<LeftRecoveryCopy> left);
    using RecoveryQueue = std::vector<LeftRecoveryCopy>; ///< the oldest last
    void recover(std::vector<LeftRecoveryCopy> copies);
    void recoverNext(const std::shared_ptr<RecoveryQueue>& queue);
    void finishRecovery(LeftRecoveryCopy& left, Expected<RecoveredDocument, DiskFailure> recovered);
    void offerLeft(DocumentSession& session, LeftRecoveryCopy left);
    void recoverInto(DocumentSession& session, const std::shared_ptr<LeftRecoveryCopy>& left);

    void reviewNext();
    void stopQuitting();

    Scheduler& m_scheduler;
    MakeEditor m_makeEditor;
    RecoveryStore m_recovery;
    RecentDocuments m_recents;
    std::weak_ptr<void> m_hold;
    std::vector<Opening> m_openings;
    std::vector<Session> m_sessions;
    std::unique_ptr<RecoveryOffer> m_offer;
    int m_recovering = 0;   ///< documents on their way from a recovery copy
    int m_newDocuments = 0; ///< made so far
    bool m_isQuitting = false;
    WhileAlive m_alive;
};

} // namespace quillon
