#include "app/DocumentScene.h"
#include "base/Time.h"
#include "desktop/PreviewWebWidget.h"
#include "desktop/QtScheduler.h"
#include "desktop/WaitFor.h"
#include "desktop/WebEngine.h"
#include "desktop/theme/Theme.h"
#include "document/EditorOperations.h"
#include "editor/EditorWindowState.h"
#include "editor/FindBar.h"
#include "editor/PreviewNote.h"
#include "package/BlankArticle.h"
#include "package/NewArticle.h"
#include "package/PackageFile.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QWebEngineView>

#include <cstdio>
#include <set>

/// Writes pictures of the document window: each article in each size and appearance, and the window's other
/// states once.
namespace quillon {

namespace {

using test::waitFor;
using namespace std::chrono_literals;

constexpr auto settleTime = 600ms; ///< until a page is painted and nothing moves any more

void settle() {
    (void)waitFor([] { return false; }, settleTime);
}

struct Shooter {
    QString folder;
    QtScheduler scheduler;
    QTemporaryDir scratch;
    Settings settings{scratch.filePath("settings.ini"), nullptr};

    /// One open document.
    struct Stage {
        DocumentStore store;
        EditorView* editor = nullptr;
        DocumentWindow window;
        bool isShown = false;

        Stage(Shooter& shooter, ArticleFileDocument document, FileState state)
            : store(std::move(document), std::move(state), [] { return 0.0; }),
              window(
                  store,
                  [&](DocumentStore& theStore, DocumentWindow& theWindow) {
                      editor = makeDocumentScene({.settings = shooter.settings,
                                                  .scheduler = shooter.scheduler,
                                                  .newDocument = {},
                                                  .windows = [] { return std::vector<DocumentWindow*>(); },
                                                  .openSettings = {},
                                                  .checkForUpdates = {}},
                                                 theStore, theWindow);
                      return editor;
                  },
                  QStringLiteral("Untitled")) {
            QObject::connect(editor, &EditorView::pageShown, &window, [this] { isShown = true; });
        }
    };

    std::unique_ptr<Stage> open(const std::string& article) {
        if (article == "blank") {
            const auto now = static_cast<std::int64_t>(wallClockSeconds());
            return std::make_unique<Stage>(*this, makeNewDocument(makeBlankArticle(now)), file::NeverSaved{});
        }
        const std::string path = std::string(QUILLON_SOURCE_DIR) + "/examples/" + article;
        auto loaded = openPackage(path);
        if (!loaded) {
            std::fprintf(stderr, "%s cannot be opened\n", path.c_str());
            std::exit(1);
        }
        return std::make_unique<Stage>(*this, std::move(*loaded), file::AtPath{path, {}});
    }

    void shoot(Stage& stage, const QSize& size, const QString& name) {
        stage.window.setMinimumSize(0, 0);
        stage.window.show();
        settle();
        stage.window.setMinimumSize(0, 0);
        stage.window.resize(size);
        (void)waitFor([&] { return stage.isShown; });
        settle();
        const QString file = folder + QStringLiteral("/") + name + QStringLiteral(".png");
        if (!stage.window.grab().save(file)) {
            std::exit(1);
        }
        std::printf("%s\n", qPrintable(file));
    }
};

constexpr QSize large(1720, 1040);
constexpr QSize small(1180, 720);

QString lookName(Appearance appearance) {
    return appearance == Appearance::Dark ? QStringLiteral("dark") : QStringLiteral("light");
}

void shootArticles(Shooter& shooter, Appearance appearance) {
    for (const char* article : {"blank", "long-feature", "everything"}) {
        const auto stage = shooter.open(article);
        for (const QSize& size : {large, small}) {
            shooter.shoot(*stage, size,
                          QStringLiteral("%1-%2-%3")
                              .arg(QLatin1String(article), lookName(appearance))
                              .arg(size.width()));
        }
    }
}

void select(Shooter::Stage& stage, std::size_t index) {
    stage.store.select(EditorSelection::ofComponent(stage.store.article().components[index].id));
}

void shootStates(Shooter& shooter, Appearance appearance) {
    const struct {
        const char* name;
        std::function<void(Shooter::Stage&)> prepare;
    } rows[] = {
        {"iphone",
         [](Shooter::Stage& stage) {
             stage.editor->state().setDevice(PreviewDevice::iPhone);
         }},
        {"ipad-landscape",
         [](Shooter::Stage& stage) {
             stage.editor->state().setDevice(PreviewDevice::iPad);
             stage.editor->state().flipOrientation();
             stage.editor->state().setZoom(0.75);
         }},
        {"dark-page",
         [](Shooter::Stage& stage) {
             stage.editor->state().setAppearance(PreviewAppearance::dark);
         }},
        {"note",
         [](Shooter::Stage& stage) {
             stage.editor->preview()->findChild<PreviewNote*>()->tell(
                 "The page has stopped its web process several times. It is tried again with your next "
                 "change.",
                 "Try Again");
         }},
        {"page-focus",
         [](Shooter::Stage& stage) {
             stage.window.show();
             stage.window.activateWindow();
             settle();
             stage.editor->preview()->webWidget().view()->setFocus(Qt::TabFocusReason);
         }},
        {"json",
         [](Shooter::Stage& stage) {
             stage.editor->state().setMode(PreviewMode::json);
             stage.editor->find()->open();
             stage.editor->find()->findChild<QLineEdit*>()->setText("text");
         }},
        {"selected",
         [](Shooter::Stage& stage) {
             select(stage, 3);
         }},
        {"gone",
         [](Shooter::Stage& stage) {
             stage.store.select(EditorSelection::ofComponent(Uuid::random()));
         }},
        {"no-sidebars",
         [](Shooter::Stage& stage) {
             stage.editor->state().toggleSidebars();
         }},
        {"notice",
         [](Shooter::Stage& stage) {
             stage.window.showNotice("“Trip” was changed by another program.",
                                     {{"Reload", {}}, {"Keep Mine", {}}});
             stage.window.showWarning("No recovery copy can be kept: the disk is full.");
         }},
    };
    for (const auto& row : rows) {
        const auto stage = shooter.open("news-report");
        row.prepare(*stage);
        // Where there is no page none comes up.
        stage->isShown = stage->editor->state().mode() == PreviewMode::json;
        shooter.shoot(*stage, small,
                      QStringLiteral("state-%1-%2").arg(QLatin1String(row.name), lookName(appearance)));
    }
}

} // namespace

} // namespace quillon

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "Usage: quillon-window-shots FOLDER\n");
        return 2;
    }
    quillon::prepareWebEngine();
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    quillon::theme().install();
    quillon::Shooter shooter;
    shooter.folder = QString::fromUtf8(argv[1]);
    for (const auto appearance : {quillon::Appearance::Light, quillon::Appearance::Dark}) {
        quillon::theme().pin(appearance);
        quillon::shootArticles(shooter, appearance);
        quillon::shootStates(shooter, appearance);
    }
    return 0;
}
