#include "DocumentsFixture.h"
#include "WaitFor.h"

#include "base/Log.h"
#include "desktop/ImageDecoding.h"
#include "desktop/PreviewWebWidget.h"
#include "desktop/widgets/ProgressIndicator.h"
#include "editor/EditorView.h"
#include "editor/EditorWindowState.h"
#include "editor/PreviewNote.h"
#include "editor/PreviewPane.h"
#include "model/ComponentTree.h"
#include "package/NewArticle.h"
#include "preview/ArticleDerivedContentCache.h"
#include "support/ManualScheduler.h"

#include <QAbstractButton>
#include <QBuffer>
#include <QDateTime>
#include <QDropEvent>
#include <QFile>
#include <QImage>
#include <QMimeData>
#include <QSettings>
#include <QSignalSpy>
#include <QWebEngineView>

#include <algorithm>
#include <csignal>
#include <mutex>

namespace quillon::test {

namespace {

/// An open document and the page in its window.
class LivePreviewTest : public DocumentsTest {
protected:
    LivePreviewTest() {
        setLogSink([this](std::string_view line) {
            const std::lock_guard guard(m_mutex);
            m_log.emplace_back(line.substr(0, line.find(' ')));
        });
        m_package = writePackage("Trip");
        session = open(m_package);
        pane = session->window().findChild<EditorView*>()->preview();
    }
    ~LivePreviewTest() override { setLogSink({}); }

    int count(std::string_view name) {
        const std::lock_guard guard(m_mutex);
        return static_cast<int>(std::count(m_log.begin(), m_log.end(), name));
    }

    std::string run(const std::string& expression) {
        const auto result = std::make_shared<std::optional<std::string>>();
        pane->webWidget().evaluate(QString::fromStdString("String(" + expression + ")"),
                                   [result](const QString& value) { *result = value.toStdString(); });
        // A process that dies meanwhile never answers.
        (void)waitFor([&] { return result->has_value(); }, std::chrono::seconds(2));
        return result->value_or("no answer");
    }
    bool comesTrue(const std::string& expression) {
        return waitFor([&] { return run(expression) == "true"; });
    }
    bool shows(const std::string& text) {
        return comesTrue("document.body.innerText.includes('" + text + "')");
    }

    /// Appends a body; returns its id.
    Uuid addBody(const std::string& text) {
        ArticleDocument article = session->store().article();
        const Component body = makeTextComponent(ComponentRole::body, text);
        article.components = article.components.append(body);
        session->store().edit({"Add Body", ""}, std::move(article), EditorSelection::ofComponent(body.id));
        return body.id;
    }

    std::string m_package;
    DocumentSession* session = nullptr;
    PreviewPane* pane = nullptr;

private:
    std::mutex m_mutex;
    std::vector<std::string> m_log;
};

} // namespace

TEST_F(LivePreviewTest, thePageFollowsEditsUndoSaveAndReopening) {
    ASSERT_TRUE(comesTrue("document.querySelector('.article, main, body') !== null"));
    addBody("first words");
    ASSERT_TRUE(shows("first words"));
    addBody("second words");
    ASSERT_TRUE(shows("second words"));
    session->store().undo();
    ASSERT_TRUE(comesTrue("!document.body.innerText.includes('second words')"));
    EXPECT_TRUE(shows("first words"));
    session->store().redo();
    ASSERT_TRUE(shows("second words"));
    session->save();
    ASSERT_TRUE(waitFor([&] { return !session->store().isEdited(); }));
    restart();
    session = open(m_package);
    pane = session->window().findChild<EditorView*>()->preview();
    EXPECT_TRUE(shows("second words"));
}

TEST_F(LivePreviewTest, aWindowRendersItsPageOnceAndNotForALookAtTheJSON) {
    ASSERT_TRUE(waitFor([&] { return count("preview.webview.reload.finish") == 1; }));
    auto& state = session->window().findChild<EditorView*>()->state();
    state.setDevice(PreviewDevice::iPhone);
    ASSERT_TRUE(waitFor([&] { return count("preview.webview.reload.finish") == 2; }));
    EXPECT_EQ(count("preview.render.background"), 2);
    state.setMode(PreviewMode::json);
    state.setMode(PreviewMode::rendered);
    ASSERT_TRUE(waitFor([&] { return count("preview.webview.reload.finish") == 3; }));
    QTest::qWait(300);
    EXPECT_EQ(count("preview.render.background"), 2);
    EXPECT_EQ(count("preview.webview.reload.start"), 3);
}

TEST_F(LivePreviewTest, aSpinnerTellsThatTheFirstPageIsOnItsWay) {
    ManualScheduler scheduler;
    ArticleDerivedContentCache cache(decodeImage);
    PreviewPane waiting(session->store(), cache, *m_settings, scheduler);
    waiting.resize(600, 500);
    waiting.show();
    const auto* progress = waiting.findChild<ProgressIndicator*>("previewProgress");
    EXPECT_FALSE(progress->isShowing());
    ASSERT_TRUE(waitFor([&] { return progress->isShowing(); }));
    EXPECT_LE((progress->geometry().center() - waiting.rect().center()).manhattanLength(), 1);
    QSignalSpy shown(&waiting, &PreviewPane::pageShown);
    ASSERT_TRUE(waitFor([&] {
        scheduler.advance(0.1);
        scheduler.settle();
        EXPECT_EQ(progress->isShowing(), shown.isEmpty());
        return !shown.isEmpty();
    }));
}

TEST_F(LivePreviewTest, selectingFlashesWithoutRenderOrLoad) {
    const Uuid top = addBody("at the top");
    for (int number = 0; number < 60; ++number) {
        addBody("filler");
    }
    const Uuid bottom = addBody("at the bottom");
    ASSERT_TRUE(shows("at the bottom"));
    const std::string flash =
        "[...document.querySelectorAll('.anf-focus-flash')].map(e => e.dataset.componentId).join() === '";
    EXPECT_TRUE(comesTrue(flash + bottom.text() + "'"));
    const int renders = count("preview.render.background");
    const int loads = count("preview.webview.reload.start");
    session->store().select(EditorSelection::ofComponent(top));
    EXPECT_TRUE(comesTrue(flash + top.text() + "'"));
    const std::string place =
        "document.querySelector('[data-component-id=\"" + top.text() + "\"]').getBoundingClientRect()";
    EXPECT_TRUE(comesTrue(place + ".top >= 0 && " + place + ".bottom <= innerHeight"));
    EXPECT_EQ(count("preview.render.background"), renders);
    EXPECT_EQ(count("preview.webview.reload.start"), loads);
    EXPECT_TRUE(comesTrue(flash + "'")) << "the flash ends";
}

TEST_F(LivePreviewTest, aChangeThatIsTakenBackInThePauseLeavesThePageAlone) {
    addBody("words");
    ASSERT_TRUE(shows("words"));
    run("window.mark = 'kept'");
    addBody("more");
    session->store().undo();
    ASSERT_TRUE(waitFor([&] { return count("preview.cache.hit") > 0; }));
    EXPECT_EQ(run("window.mark"), "kept");
}

TEST_F(LivePreviewTest, aPictureThatAnotherProgramReplacedIsShownAnew) {
    // Of one size in bytes, which no fingerprint tells apart.
    const auto picture = [](int width, int height) {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(Qt::red);
        QByteArray bytes;
        QBuffer buffer(&bytes);
        image.save(&buffer, "BMP");
        return bytes.toStdString();
    };
    ASSERT_EQ(picture(4, 4).size(), picture(8, 2).size());
    m_folder.write("Pictures/a.bmp", picture(4, 4));
    ArticleDocument article = makeNewArticle("id", "Pictures", "");
    Component photo;
    photo.role = ComponentRole::photo;
    photo.URL = std::string("bundle://a.bmp");
    article.components = {photo};
    m_folder.write("Pictures/article.json", *sharedArticleEncoder.encode(article));
    session = open(path("Pictures"));
    pane = session->window().findChild<EditorView*>()->preview();
    ASSERT_TRUE(comesTrue("document.images[0].naturalWidth === 4"));
    m_folder.write("Pictures/a.bmp", picture(8, 2));
    QFile(QString::fromStdString(path("Pictures/a.bmp")))
        .setFileTime(QDateTime::currentDateTime(), QFile::FileModificationTime);
    Q_EMIT session->window().activated();
    EXPECT_TRUE(comesTrue("document.images[0].naturalWidth === 8"));
}

TEST_F(LivePreviewTest, otherAssetsLoadThePageOnceTheirRenderIsThere) {
    addBody("words");
    ASSERT_TRUE(shows("words"));
    session->save();
    ASSERT_TRUE(waitFor([&] { return !session->store().isEdited(); }));
    const int loads = count("preview.webview.reload.start");
    m_folder.write("Trip/images/b.jpg", "another picture");
    Q_EMIT session->window().activated();
    ASSERT_TRUE(waitFor([&] { return session->store().document().assets->contains("images/b.jpg"); }));
    ASSERT_TRUE(waitFor([&] { return count("preview.webview.reload.finish") > loads; }));
    QTest::qWait(300);
    EXPECT_EQ(count("preview.webview.reload.start"), loads + 1);
}

TEST_F(LivePreviewTest, aChangeOfTheSettingsFromOutsideReachesThePage) {
    ASSERT_TRUE(comesTrue("document.baseURI === 'https://quillon.example/'"));
    QSettings(QString::fromStdString(path("config/Quillon.ini")), QSettings::IniFormat)
        .setValue("preview.mapsEmbedOrigin", "https://maps.example");
    EXPECT_TRUE(comesTrue("location.origin === 'https://maps.example'"));
}

TEST_F(LivePreviewTest, theEditorOutlivesItsPagesProcessAndSaysSo) {
    addBody("words");
    ASSERT_TRUE(shows("words"));
    auto* note = pane->findChild<PreviewNote*>();
    for (int end = 0; end < 3; ++end) {
        QSignalSpy restarted(&pane->webWidget(), &PreviewWebWidget::restarted);
        ::kill(static_cast<pid_t>(pane->webWidget().processId()), SIGKILL);
        ASSERT_TRUE(waitFor([&] { return restarted.count() == 1; }));
        EXPECT_TRUE(note->isVisible());
        if (end < 2) {
            ASSERT_TRUE(shows("words"));
        }
    }
    QTest::mouseClick(note->findChild<QAbstractButton*>("previewNoteAction"), Qt::LeftButton);
    ASSERT_TRUE(shows("words"));
    EXPECT_FALSE(note->isVisible());
    addBody("more");
    EXPECT_TRUE(shows("more"));
}

TEST_F(LivePreviewTest, aFolderDroppedOnThePageOpens) {
    addBody("words");
    ASSERT_TRUE(shows("words"));
    const std::string other = writePackage("Other");
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(other))});
    QWidget* target = pane->webWidget().view()->focusProxy();
    // As the platform does it: whoever takes drops first, from the innermost outwards.
    while (target && !target->acceptDrops()) {
        target = target->parentWidget();
    }
    EXPECT_EQ(target, &session->window());
    QDragEnterEvent enter({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop({10, 10}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(target, &drop);
    EXPECT_TRUE(hasSessions(2));
}

} // namespace quillon::test
