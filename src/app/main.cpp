#include "app/QuillonApp.h"
#include "desktop/WebEngine.h"
#include "desktop/theme/Theme.h"

#include <QApplication>

#include <cstdio>

namespace {

constexpr int usageStatus = 2;

/// Prints what the command line asked for, and gives the program's exit status.
int answer(const quillon::CommandLine& line) {
    std::fputs(line.answer->c_str(), line.isWrong ? stderr : stdout);
    return line.isWrong ? usageStatus : 0;
}

} // namespace

int main(int argc, char** argv) {
    const quillon::CommandLine first = quillon::parseCommandLine({argv + 1, argv + argc});
    if (first.answer && !first.isWrong) {
        // Needs no display.
        return answer(first);
    }
    quillon::prepareWebEngine();
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Quillon"));
    QApplication::setOrganizationName(QStringLiteral("Tarnwell"));
    QApplication::setApplicationVersion(QStringLiteral(QUILLON_VERSION));
    // Qt has taken its own options out of these; as bytes they may name what is not UTF-8.
    const quillon::CommandLine line = quillon::parseCommandLine({argv + 1, argv + argc});
    if (line.answer) {
        return answer(line);
    }
    quillon::theme().install();
    return quillon::QuillonApp().run(line);
}
