#include "app/QuillonApp.h"

#include <QApplication>
#include <QPixmap>
#include <QTimer>
#include <QWidget>

#include <chrono>

namespace quillon {

namespace {

constexpr auto usage =
    "Usage: quillon [--picture FILE] [PACKAGE...]\n"
    "Edits articles in Apple News Format. PACKAGE is the folder of an article.\n"
    "\n"
    "  -h, --help     print this text\n"
    "  -v, --version  print the version\n"
    "  --picture FILE write a picture of the window as PNG once its page is there, and end\n"
    "  --             what follows are packages, whatever they look like\n";

} // namespace

CommandLine parseCommandLine(const std::vector<std::string>& arguments) {
    CommandLine line;
    bool areAllPackages = false;
    for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
        const bool isOption = !areAllPackages && argument->size() > 1 && argument->front() == '-';
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
        } else if (*argument == "--picture" && argument + 1 != arguments.end()) {
            line.picture = *++argument;
        } else {
            line.answer = "quillon: unknown option " + *argument + "\n" + usage;
            line.isWrong = true;
            return line;
        }
    }
    return line;
}

QuillonApp::QuillonApp()
    : m_documents(m_scheduler, m_settings, recoveryFolder()), m_signals([this] {
          m_documents.flushRecovery();
          QCoreApplication::exit(0);
      }) {
    // A window that is still on its way counts, too, which only the documents know.
    QApplication::setQuitOnLastWindowClosed(false);
    QObject::connect(&m_documents, &DocumentController::nothingLeft, [] { QCoreApplication::exit(0); });
}

int QuillonApp::run(const CommandLine& line) {
    if (!line.picture.empty()) {
        takePicture(line.picture);
    }
    m_documents.start(line.packages);
    return QApplication::exec();
}

void QuillonApp::takePicture(const std::string& file) {
    using namespace std::chrono_literals;
    constexpr auto paintTime = 500ms; // from a page that is complete to one that is seen
    constexpr auto longest = 60s;
    QTimer::singleShot(longest, &m_documents, [] { QCoreApplication::exit(1); });
    QObject::connect(&m_documents, &DocumentController::pageShown, &m_documents, [file](QWidget* window) {
        QTimer::singleShot(paintTime, window, [file, window] {
            const bool isSaved = window->grab().save(QString::fromStdString(file), "PNG");
            QCoreApplication::exit(isSaved ? 0 : 1);
        });
    });
}

} // namespace quillon
