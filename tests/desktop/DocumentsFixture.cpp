#include "DocumentsFixture.h"

#include "app/DocumentScene.h"
#include "desktop/Questions.h"
#include "package/BlankArticle.h"
#include "package/NewArticle.h"
#include "package/PackageFile.h"

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>
#include <filesystem>

namespace quillon::test {

namespace fs = std::filesystem;

DocumentsTest::DocumentsTest() {
    restart();
}

DocumentsTest::~DocumentsTest() = default;

void DocumentsTest::restart() {
    m_controller.reset();
    m_settings = std::make_unique<Settings>(QString::fromStdString(path("config/Quillon.ini")), nullptr);
    m_controller = std::make_unique<DocumentController>(
        m_scheduler, *m_settings,
        [this](DocumentStore& store, DocumentWindow& window) {
            const ProgramServices services{
                .settings = *m_settings,
                .scheduler = m_scheduler,
                .newDocument =
                    [this](ArticleFileDocument document) { m_controller->newDocument(std::move(document)); },
                .windows = [this] { return m_controller->windows(); },
            };
            return makeDocumentScene(services, store, window);
        },
        path("state/recovery"));
}

std::string DocumentsTest::writePackage(const std::string& name, const std::string& title) {
    rewrite(path(name), title);
    m_folder.write(name + "/images/a.jpg", "picture");
    m_folder.write(name + "/notes.txt", "notes");
    return fs::canonical(path(name));
}

void DocumentsTest::rewrite(const std::string& package, const std::string& title) {
    ArticleDocument article = makeBlankArticle(0);
    article.title = title;
    m_folder.write(fs::relative(package, path("")).native() + "/article.json",
                   *sharedArticleEncoder.encode(article));
}

std::string DocumentsTest::titleOnDisk(const std::string& package) const {
    const auto article = openPackageArticle(package);
    return article ? article->title : "no article";
}

DocumentSession* DocumentsTest::open(const std::string& package) {
    const std::size_t before = m_controller->sessions().size();
    m_controller->open(package);
    return hasSessions(before + 1) ? m_controller->sessions().back() : nullptr;
}

void DocumentsTest::setTitle(DocumentSession& session, const std::string& title) {
    ArticleDocument article = session.store().article();
    article.title = title;
    session.store().edit({"Change Title", {}}, article);
}

QString DocumentsTest::title(const DocumentSession& session) {
    return QString::fromStdString(const_cast<DocumentSession&>(session).store().article().title);
}

QMessageBox* DocumentsTest::question(const QWidget& window, const char* name) {
    QMessageBox* found = nullptr;
    (void)wait([&] {
        auto* box = qobject_cast<QMessageBox*>(openQuestion(&window));
        found = box && box->objectName() == QLatin1String(name) ? box : nullptr;
        return found != nullptr;
    });
    return found;
}

void DocumentsTest::answer(QMessageBox* box, const char* button) {
    auto* found = box->findChild<QPushButton*>(QString::fromUtf8(button));
    ASSERT_TRUE(found) << button;
    QTest::mouseClick(found, Qt::LeftButton);
}

bool DocumentsTest::answer(const QWidget& window, const char* name, const char* button) {
    QMessageBox* box = question(window, name);
    if (box) {
        answer(box, button);
    }
    return box;
}

bool DocumentsTest::hasNotice(DocumentSession& session, const QString& text) {
    const auto* notice = session.window().findChild<QWidget*>(QStringLiteral("notice"));
    const auto* label = session.window().findChild<QLabel*>(QStringLiteral("noticeText"));
    return wait(
        [&] { return text.isEmpty() ? !notice->isVisible() : notice->isVisible() && label->text() == text; });
}

void DocumentsTest::pressNotice(DocumentSession& session, const char* button) {
    auto* found = session.window()
                      .findChild<QWidget*>(QStringLiteral("notice"))
                      ->findChild<QPushButton*>(QString::fromUtf8(button));
    ASSERT_TRUE(found) << button;
    QTest::mouseClick(found, Qt::LeftButton);
}

bool DocumentsTest::choosePlace(DocumentSession& session, const std::string& path) {
    QDialog* dialog = nullptr;
    (void)wait([&] {
        dialog = session.window().findChild<QDialog*>(QStringLiteral("saveDialog"));
        return dialog && dialog->isVisible();
    });
    auto* edit = dialog ? dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit")) : nullptr;
    if (!edit) {
        return false;
    }
    // At once, since the completions that typing brings up come and go in their own time.
    edit->setText(QString::fromStdString(path));
    QTest::keyClick(edit, Qt::Key_Return);
    return true;
}

std::size_t DocumentsTest::recoveryCopies() const {
    std::error_code error;
    const fs::directory_iterator folders(path("state/recovery"), error);
    const auto isCopy = [](const fs::directory_entry& entry) {
        return entry.is_directory() && !fs::is_empty(entry.path());
    };
    return error ? 0 : static_cast<std::size_t>(std::count_if(begin(folders), end(folders), isCopy));
}

} // namespace quillon::test
