#pragma once

#include "desktop/DocumentController.h"
#include "desktop/QtScheduler.h"
#include "desktop/Settings.h"
#include "desktop/TerminationSignals.h"
#include "desktop/theme/Tokens.h"

#include <optional>
#include <string>
#include <vector>

namespace quillon {

/// What the command line asks for.
struct CommandLine {
    std::vector<std::string> packages;
    std::string
        screenshot; ///< file for a picture of the first page's window, to be taken in place of a session
    std::optional<Appearance> appearance; ///< to keep to, whatever the desktop's is
    std::optional<std::string> answer;    ///< to be printed in place of starting the program
    bool isWrong = false;                 ///< then `answer` says why
};

/// Reads the arguments behind the program's name, without those that Qt has taken for itself.
CommandLine parseCommandLine(const std::vector<std::string>& arguments);

/// The running program: everything that lives as long as it does.
class QuillonApp {
public:
    QuillonApp();

    /// Runs the program until its last window has closed. Returns its exit status.
    int run(const CommandLine& line);

private:
    QWidget* makeEditor(DocumentStore& store, DocumentWindow& window);

    std::string m_screenshot; ///< file for a picture of the window; empty where none is wanted
    QtScheduler m_scheduler;
    Settings m_settings;
    DocumentController m_documents;
    TerminationSignals m_signals;
};

} // namespace quillon
