#include "desktop/DocumentWindow.h"

#include "desktop/DocumentText.h"
#include "desktop/MenuItem.h"
#include "desktop/RecentDocuments.h"
#include "desktop/WindowPlacement.h"

#include <QAction>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QHBoxLayout>
#include <QKeySequence>
#include <QLabel>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QShortcut>
#include <QStatusBar>
#include <QVBoxLayout>

#include <utility>

namespace quillon {

namespace {

using Signal = void (DocumentWindow::*)();

/// One item of a menu that passes on a wish.
struct Command {
    const char* name;
    const char* text;
    QKeySequence::StandardKey key;
    const char* otherKey; ///< where the desktop has no key of its own
    Signal signal;
};

constexpr Command fileCommands[] = {
    {"close", "&Close", QKeySequence::Close, "Ctrl+W", &DocumentWindow::closeRequested},
    {"save", "&Save", QKeySequence::Save, "Ctrl+S", &DocumentWindow::saveRequested},
    {"saveAs", "Save &As…", QKeySequence::SaveAs, "Ctrl+Shift+S", &DocumentWindow::saveAsRequested},
    {"revert", "Re&vert to Saved…", QKeySequence::UnknownKey, "", &DocumentWindow::revertRequested},
    {"quit", "&Quit", QKeySequence::Quit, "Ctrl+Q", &DocumentWindow::quitRequested},
};
constexpr Command newCommand = {"new", "&New", QKeySequence::New, "Ctrl+N", &DocumentWindow::newRequested};
constexpr Command openCommand = {"open", "&Open…", QKeySequence::Open, "Ctrl+O",
                                 &DocumentWindow::openRequested};

constexpr QSize usualSize(1720, 1040); ///< where there is no screen to be placed on

/// By WindowMenu.
constexpr struct {
    const char* name;
    const char* text;
} menuRows[] = {
    {"fileMenu", "&File"},     {"editMenu", "&Edit"}, {"insertMenu", "&Insert"}, {"viewMenu", "&View"},
    {"windowMenu", "&Window"}, {"betaMenu", "&Beta"}, {"helpMenu", "&Help"},
};

std::string firstFolder(const QMimeData* data) {
    for (const QUrl& url : data->urls()) {
        if (std::string path = pathFromUrl(url); !path.empty()) {
            return path;
        }
    }
    return {};
}

} // namespace

struct DocumentWindow::Parts {
    DocumentStore& store;
    QString newName;
    bool mayClose = false;
    bool wasPlaced = false;
    QAction* save = nullptr;
    QAction* revert = nullptr;
    QAction* undo = nullptr;
    QAction* redo = nullptr;
    QMenu* recent = nullptr;
    QWidget* notice = nullptr;
    QLabel* noticeText = nullptr;
    QLabel* warning = nullptr;
    QHBoxLayout* noticeButtons = nullptr;
    Subscription subscription;
};

DocumentWindow::DocumentWindow(DocumentStore& store, const MakeEditor& makeEditor, QString newName)
    : m_parts(new Parts{.store = store, .newName = std::move(newName)}) {
    setObjectName(QStringLiteral("documentWindow"));
    setAcceptDrops(true);
    resize(usualSize);
    auto* middle = new QWidget(this);
    buildMenus();
    auto* column = new QVBoxLayout(middle);
    column->setContentsMargins({});
    column->setSpacing(0);
    buildNotice();
    column->addWidget(m_parts->notice);
    column->addWidget(makeEditor(store, *this), 1);
    setCentralWidget(middle);
    statusBar()->setObjectName(QStringLiteral("statusBar"));
    statusBar()->setAccessibleName(QStringLiteral("Status"));
    statusBar()->setSizeGripEnabled(false);
    m_parts->warning = new QLabel(statusBar());
    m_parts->warning->setObjectName(QStringLiteral("warning"));
    m_parts->warning->setTextFormat(Qt::PlainText);
    statusBar()->addPermanentWidget(m_parts->warning, 1);
    statusBar()->hide();
    m_parts->subscription = store.observe([this](const StoreChange&) { showState(); });
    showState();
}

DocumentWindow::~DocumentWindow() = default;

void DocumentWindow::buildNotice() {
    m_parts->notice = new QWidget(this);
    m_parts->notice->setObjectName(QStringLiteral("notice"));
    auto* row = new QHBoxLayout(m_parts->notice);
    m_parts->noticeText = new QLabel(m_parts->notice);
    m_parts->noticeText->setObjectName(QStringLiteral("noticeText"));
    m_parts->noticeText->setTextFormat(Qt::PlainText);
    row->addWidget(m_parts->noticeText, 1);
    m_parts->noticeButtons = new QHBoxLayout();
    row->addLayout(m_parts->noticeButtons);
    m_parts->notice->hide();
}

QMenu& DocumentWindow::menu(WindowMenu menu) {
    return *menuBar()->findChild<QMenu*>(QLatin1String(menuRows[static_cast<std::size_t>(menu)].name));
}

void DocumentWindow::buildMenus() {
    for (const auto& row : menuRows) {
        const QString text = QString::fromUtf8(row.text);
        QMenu* made = menuBar()->addMenu(text);
        made->setObjectName(QLatin1String(row.name));
        made->setAccessibleName(QString(text).remove(QLatin1Char('&')));
    }
    new QShortcut(Qt::Key_F10, this,
                  [this] { menuBar()->setActiveAction(menuBar()->actions().constFirst()); });
    QMenu* file = &menu(WindowMenu::File);
    const auto add = [&](const Command& command) {
        return addMenuItem(*file,
                           {command.name, QString::fromUtf8(command.text),
                            standardKeys(command.key, command.otherKey), [this, signal = command.signal] {
                                (this->*signal)();
                            }});
    };
    add(newCommand);
    add(openCommand);
    m_parts->recent = file->addMenu(QStringLiteral("Open &Recent"));
    m_parts->recent->setObjectName(QStringLiteral("recentMenu"));
    m_parts->recent->setAccessibleName(QStringLiteral("Open Recent"));
    connect(m_parts->recent, &QMenu::aboutToShow, this, &DocumentWindow::recentRequested);
    file->addSeparator();
    for (const Command& command : fileCommands) {
        QAction* action = add(command);
        m_parts->save = command.signal == &DocumentWindow::saveRequested ? action : m_parts->save;
        m_parts->revert = command.signal == &DocumentWindow::revertRequested ? action : m_parts->revert;
    }
    file->insertSeparator(file->actions().last());

    QMenu* edit = &menu(WindowMenu::Edit);
    m_parts->undo = addMenuItem(
        *edit, {"undo", QStringLiteral("Undo"), standardKeys(QKeySequence::Undo, "Ctrl+Z"), [this] {
                    m_parts->store.undo();
                }});
    m_parts->redo = addMenuItem(
        *edit, {"redo", QStringLiteral("Redo"), standardKeys(QKeySequence::Redo, "Ctrl+Shift+Z"), [this] {
                    m_parts->store.redo();
                }});
}

void DocumentWindow::showState() {
    const DocumentStore& store = m_parts->store;
    const auto path = store.path();
    const QString folder = path ? shownFolderName(*path) : m_parts->newName;
    setWindowTitle(quillon::windowTitle(shownTitle(store.article().title), folder));
    setWindowFilePath(path ? QString::fromStdString(*path) : QString());
    setWindowModified(store.isEdited());
    m_parts->undo->setText(QLatin1Char('&') + menuText(QString::fromStdString(store.undoTitle())));
    m_parts->undo->setEnabled(store.canUndo());
    m_parts->redo->setText(QLatin1Char('&') + menuText(QString::fromStdString(store.redoTitle())));
    m_parts->redo->setEnabled(store.canRedo());
    const bool isChanged = std::holds_alternative<file::ChangedOnDisk>(store.fileState());
    const bool isAtPath = std::holds_alternative<file::AtPath>(store.fileState());
    m_parts->revert->setEnabled(isChanged || (isAtPath && store.isEdited()));
}

void DocumentWindow::setRecentDocuments(const std::vector<RecentDocument>& documents) {
    m_parts->recent->clear();
    for (const RecentDocument& document : documents) {
        QAction* action = m_parts->recent->addAction(menuText(shownPath(document.path)));
        action->setEnabled(!document.isMissing);
        connect(action, &QAction::triggered, this,
                [this, path = document.path] { Q_EMIT openPathRequested(path); });
    }
    m_parts->recent->addSeparator();
    QAction* clear = m_parts->recent->addAction(QStringLiteral("Clear Menu"));
    clear->setObjectName(QStringLiteral("clearRecent"));
    clear->setEnabled(!documents.empty());
    connect(clear, &QAction::triggered, this, &DocumentWindow::clearRecentRequested);
}

void DocumentWindow::showNotice(const QString& text, std::vector<NoticeAction> actions) {
    if (!m_parts->notice->isHidden() && m_parts->noticeText->text() == text) {
        return;
    }
    hideNotice();
    m_parts->noticeText->setText(text);
    m_parts->notice->setAccessibleName(text);
    for (NoticeAction& action : actions) {
        auto* button = new QPushButton(action.text, m_parts->notice);
        button->setObjectName(action.text);
        button->setAccessibleName(action.text);
        connect(button, &QPushButton::clicked, this, std::move(action.action));
        m_parts->noticeButtons->addWidget(button);
    }
    m_parts->notice->show();
}

void DocumentWindow::hideNotice() {
    m_parts->notice->hide();
    for (QPushButton* button : m_parts->notice->findChildren<QPushButton*>()) {
        // One of them may have been pressed just now.
        button->hide();
        button->setObjectName({});
        button->setParent(nullptr);
        button->deleteLater();
    }
}

void DocumentWindow::showStatus(const QString& text) {
    statusBar()->showMessage(text);
    statusBar()->setVisible(!text.isEmpty() || !m_parts->warning->text().isEmpty());
}

void DocumentWindow::showWarning(const QString& text) {
    m_parts->warning->setText(text);
    m_parts->warning->setAccessibleName(text);
    showStatus(statusBar()->currentMessage());
}

void DocumentWindow::bringForward() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void DocumentWindow::closeForGood() {
    m_parts->mayClose = true;
    // Not close(), which does nothing while the window asks whether it may close.
    hide();
}

void DocumentWindow::closeEvent(QCloseEvent* event) {
    if (m_parts->mayClose) {
        event->accept();
        return;
    }
    event->ignore();
    Q_EMIT closeRequested();
}

void DocumentWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        Q_EMIT activated();
    }
}

void DocumentWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (!std::exchange(m_parts->wasPlaced, true)) {
        placeInitially(*this);
    }
}

void DocumentWindow::dragEnterEvent(QDragEnterEvent* event) {
    // A page that is dragged from must not choose what opens.
    if (!event->source() && !firstFolder(event->mimeData()).empty()) {
        event->acceptProposedAction();
    }
}

void DocumentWindow::dropEvent(QDropEvent* event) {
    if (const std::string path = firstFolder(event->mimeData()); !path.empty()) {
        // The one who drags must not take it for moved away.
        event->setDropAction(Qt::CopyAction);
        event->accept();
        Q_EMIT openPathRequested(path);
    }
}

} // namespace quillon
