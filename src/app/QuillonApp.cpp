#include "app/QuillonApp.h"

#include <QApplication>

namespace quillon {

namespace {

constexpr auto usage = "Usage: quillon [PACKAGE...]\n"
                       "Edits articles in Apple News Format. PACKAGE is the folder of an article.\n"
                       "\n"
                       "  -h, --help     print this text\n"
                       "  -v, --version  print the version\n"
                       "  --             what follows are packages, whatever they look like\n";

} // namespace

CommandLine parseCommandLine(const std::vector<std::string>& arguments) {
    CommandLine line;
    bool areAllPackages = false;
    for (const std::string& argument : arguments) {
        const bool isOption = !areAllPackages && argument.size() > 1 && argument.front() == '-';
        if (!isOption) {
            line.packages.push_back(argument);
        } else if (argument == "--") {
            areAllPackages = true;
        } else if (argument == "-h" || argument == "--help") {
            line.answer = usage;
            return line;
        } else if (argument == "-v" || argument == "--version") {
            line.answer = "quillon " QUILLON_VERSION "\n";
            return line;
        } else {
            return {{}, "quillon: unknown option " + argument + "\n" + usage, true};
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

int QuillonApp::run(const std::vector<std::string>& packages) {
    m_documents.start(packages);
    return QApplication::exec();
}

} // namespace quillon
