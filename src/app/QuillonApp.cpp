#include "app/QuillonApp.h"

#include "app/DocumentScene.h"
#include "desktop/theme/Theme.h"

#include <QApplication>
#include <QPixmap>
#include <QTimer>
#include <QWidget>

#include <chrono>
#include <cstdio>

namespace quillon {

namespace {

using namespace std::chrono_literals;

constexpr auto paintTime = 500ms; ///< from a page that is complete to one that is seen
constexpr auto longestScreenshot = 60s;

constexpr auto usage =
    "Usage: quillon [OPTION...] [PACKAGE...]\n"
    "Edits articles in Apple News Format. PACKAGE is the folder of an article.\n"
    "\n"
    "  -h, --help         print this text\n"
    "  -v, --version      print the version\n"
    "  --appearance LOOK  be \"light\" or \"dark\", whatever the desktop is\n"
    "  --screenshot FILE  write a picture of the window as PNG once its page is there, and end\n"
    "  --                 what follows are packages, whatever they look like\n";

} // namespace

CommandLine parseCommandLine(const std::vector<std::string>& arguments) {
    CommandLine line;
    bool areAllPackages = false;
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        const bool isOption = !areAllPackages && argument->size() > 1 && argument->front() == '-';
        if (argument->empty()) {
            line.answer = std::string("quillon: the name of a package is empty\n") + usage;
            line.isWrong = true;
            return line;
        }
        if (!isOption) {
            line.packages.push_back(*argument);
        } else if (*argument == "--") {
            areAllPackages = true;
        } else if (*argument == "-h" || *argument == "--help") {
            line.answer = usage;
            return line;
        } else if (*argument == "-v" || *argument == "--version") {
            line.answer = "quillon " QUILLON_VERSION "\n";
            return line;
        } else if (*argument == "--screenshot" && argument + 1 != arguments.end()) {
            line.screenshot = *++argument;
        } else if (*argument == "--appearance" && argument + 1 != arguments.end() &&
                   (argument[1] == "light" || argument[1] == "dark")) {
            line.appearance = *++argument == "dark" ? Appearance::Dark : Appearance::Light;
        } else {
            line.answer = "quillon: unknown option " + *argument + "\n" + usage;
            line.isWrong = true;
            return line;
        }
    }
    return line;
}

QuillonApp::QuillonApp()
    : m_documents(
          m_scheduler, m_settings,
          [this](DocumentStore& store, DocumentWindow& window) { return makeEditor(store, window); },
          recoveryFolder()),
      m_signals([this] {
          m_documents.flushRecovery();
          QCoreApplication::exit(0);
      }) {
    // A window that is still on its way counts, too, which only the documents know.
    QApplication::setQuitOnLastWindowClosed(false);
    QObject::connect(&m_documents, &DocumentController::nothingLeft, [] { QCoreApplication::exit(0); });
}

int QuillonApp::run(const CommandLine& line) {
    m_screenshot = line.screenshot;
    theme().pin(line.appearance);
    if (!m_screenshot.empty()) {
        QTimer::singleShot(longestScreenshot, &m_documents, [] { QCoreApplication::exit(1); });
        QObject::connect(&m_documents, &DocumentController::failed, [](const QString& detail) {
            std::fprintf(stderr, "quillon: %s\n", qUtf8Printable(detail));
            QCoreApplication::exit(1);
        });
    }
    m_documents.start(line.packages);
    return QApplication::exec();
}

QWidget* QuillonApp::makeEditor(DocumentStore& store, DocumentWindow& window) {
    const ProgramServices services{
        .settings = m_settings,
        .scheduler = m_scheduler,
        .newDocument = [this](ArticleFileDocument document) { m_documents.newDocument(std::move(document)); },
        .windows = [this] { return m_documents.windows(); },
    };
    EditorView* editor = makeDocumentScene(services, store, window);
    if (!m_screenshot.empty()) {
        QObject::connect(editor, &EditorView::pageShown, editor, [this, editor] {
            QTimer::singleShot(paintTime, editor, [this, editor] {
                const bool isSaved =
                    editor->window()->grab().save(QString::fromStdString(m_screenshot), "PNG");
                QCoreApplication::exit(isSaved ? 0 : 1);
            });
        });
    }
    return editor;
}

} // namespace quillon
