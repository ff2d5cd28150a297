#pragma once

#include "document/DocumentStore.h"

#include <QMainWindow>
#include <QMenu>
#include <QString>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace quillon {

struct RecentDocument;

/// Something the user can do about a notice.
struct NoticeAction {
    QString text;
    std::function<void()> action;
};

/// The menus of a document window, in their order.
enum class WindowMenu { File, Edit, Insert, View, Window, Beta, Help };

class DocumentWindow;
/// Makes what stands in the middle of a document's window, and fills the window's menus with its commands.
using MakeEditor = std::function<QWidget*(DocumentStore& store, DocumentWindow& window)>;

/// The window of one document. It shows how the store stands and passes on what the user asks for; it decides
/// nothing.
class DocumentWindow : public QMainWindow {
    Q_OBJECT

public:
    /// `newName` is what stands in place of the folder's name before the first save.
    DocumentWindow(DocumentStore& store, const MakeEditor& makeEditor, QString newName);
    ~DocumentWindow() override;

    /// File and Edit hold what every document has; all others are empty at first.
    QMenu& menu(WindowMenu menu);

    void setRecentDocuments(const std::vector<RecentDocument>& documents);

    /// A line below the menu bar that stays until it is hidden. The same notice again changes nothing.
    void showNotice(const QString& text, std::vector<NoticeAction> actions);
    void hideNotice();

    /// A quiet line at the bottom; an empty one takes it away.
    void showStatus(const QString& text);
    /// The same beside it, for what lasts.
    void showWarning(const QString& text);

    /// To the front, out of the dock if need be.
    void bringForward();

    /// Closes without asking anybody.
    void closeForGood();

Q_SIGNALS:
    void newRequested();
    void openRequested();
    void openPathRequested(const std::string& path); ///< dropped, or from the list of recent documents
    void clearRecentRequested();
    void recentRequested(); ///< the list of recent documents is about to be shown
    void closeRequested();
    void saveRequested();
    void saveAsRequested();
    void revertRequested();
    void quitRequested();
    void activated();

protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void buildMenus();
    void buildNotice();
    void showState();

    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace quillon
