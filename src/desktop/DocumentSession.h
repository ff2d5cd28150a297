#pragma once

#include "base/Scheduler.h"
#include "desktop/DiskFollowing.h"
#include "desktop/DocumentSaving.h"
#include "desktop/DocumentWindow.h"
#include "desktop/RecentDocuments.h"
#include "document/DocumentStore.h"
#include "document/RecoveryKeeper.h"
#include "document/RecoveryStore.h"

#include <QObject>

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace quillon {

/// What all documents of the program share.
struct DocumentServices {
    Scheduler& scheduler;
    const MakeEditor& makeEditor;
    RecentDocuments& recents;
    std::function<bool(const QObject*, const std::string&)> isOpenElsewhere; ///< than in that session
};

/// One open document: its store, its window, its recovery copy and its ways to and from the disk.
class DocumentSession : public QObject {
    Q_OBJECT

public:
    /// `newName` is what the document is called before its first save. `copy` is the recovery copy to go on
    /// with.
    DocumentSession(const DocumentServices& services, std::unique_ptr<DocumentStore> store,
                    std::unique_ptr<RecoveryCopy> copy, const QString& newName);
    ~DocumentSession() override;

    DocumentStore& store() { return *m_store; }
    DocumentWindow& window() { return *m_window; }

    void save() { m_saving->save(); }
    void saveAs() { m_saving->saveAs(); }
    void revert() { m_following->revert(); }

    /// Closes the window, after a question where changes would be lost.
    void close();

    /// Asks whatever must be asked before the document may go, and says whether it may. It stays open.
    void review(std::function<void(bool)> done);
    /// Whether nothing is left to ask.
    bool mayGo() const;
    /// Forgets that the user gave up changes.
    void keepChanges() { m_givenUp.reset(); }
    /// Closes the window without a question, and removes the recovery copy.
    void closeForGood();

    /// Puts the article of a left recovery copy in place of the present one, as an edit, and removes the copy
    /// once the document's own holds it.
    void takeRecovered(const ArticleDocument& article, LeftRecoveryCopy& left);

    /// Brings the recovery copy up to date at once, for a program that must end now.
    void flushRecovery() { (void)m_keeper->flush(); }

Q_SIGNALS:
    void closed(); ///< for good; the session is of no more use

private:
    void connectWindow();
    void askToSave(const std::function<void(bool)>& done);
    void endReview(const std::function<void(bool)>& done, bool mayGo);
    void savingEnded(bool isSaved);

    DocumentServices m_services;
    std::unique_ptr<DocumentStore> m_store;
    std::unique_ptr<DocumentWindow> m_window;
    std::unique_ptr<RecoveryKeeper> m_keeper;
    std::unique_ptr<DocumentSaving> m_saving;
    std::unique_ptr<DiskFollowing> m_following;
    std::optional<ArticleFileDocument> m_givenUp; ///< the value that the user agreed to lose
    bool m_isReviewing = false;
    WhileAlive m_alive;
};

} // namespace quillon
