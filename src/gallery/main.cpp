#include "desktop/theme/Theme.h"
#include "gallery/GalleryWindow.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QTimer>

#include <cstdio>

namespace {

using namespace quillon;

/// The pictures show everything at rest; what appears late has appeared by then, in milliseconds.
constexpr int settled = 2 * motion::progressDelay;

int writeScreenshot(QApplication& application, GalleryWindow& window, const QString& file) {
    theme().setReducedMotion(true);
    window.resize(window.samples().sizeHint());
    window.show();
    QTimer::singleShot(settled, &application, [&] {
        QWidget& samples = window.samples();
        samples.resize(samples.sizeHint());
        const bool isWritten = samples.grab().save(file);
        if (!isWritten) {
            std::fprintf(stderr, "%s cannot be written.\n", qPrintable(file));
        }
        QCoreApplication::exit(isWritten ? 0 : 1);
    });
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Shows every widget in each of its states."));
    parser.addHelpOption();
    const QCommandLineOption screenshot(QStringLiteral("screenshot"),
                                        QStringLiteral("Writes one picture of all widgets, and ends."),
                                        QStringLiteral("file"));
    const QCommandLineOption dark(QStringLiteral("dark"),
                                  QStringLiteral("Writes it in the dark appearance."));
    parser.addOptions({screenshot, dark});
    parser.process(application);

    theme().install();
    if (parser.isSet(screenshot)) {
        theme().pin(parser.isSet(dark) ? Appearance::Dark : Appearance::Light);
    }
    GalleryWindow window;
    if (parser.isSet(screenshot)) {
        return writeScreenshot(application, window, parser.value(screenshot));
    }
    window.resize(window.sizeHint());
    window.show();
    return QApplication::exec();
}
