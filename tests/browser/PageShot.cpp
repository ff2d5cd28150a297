#include "browser/BrowserEngine.h"
#include "browser/BrowserPage.h"
#include "package/PackageFile.h"
#include "render/Page.h"

#include <QApplication>
#include <QCommandLineParser>

#include <iostream>
#include <map>
#include <optional>

namespace quillon::test {

namespace {

struct Shot {
    std::string package;
    std::string picture;
    int width = 1024;
    int height = 768;
    PreviewAppearance appearance = PreviewAppearance::light;
    bool isWholePage = false;
};

/// The exit status: 0 when the picture has been written.
int take(const Shot& shot) {
    const auto document = openPackage(shot.package);
    if (!document) {
        std::cerr << document.error().message(shot.package) << "\n";
        return 1;
    }
    PreviewEnvironment environment =
        previewEnvironment(PreviewDevice::automatic, PreviewOrientation::portrait, shot.width, shot.height);
    environment.appearance = shot.appearance;
    BrowserPage page(shot.width, shot.height);
    if (!page.load(HTMLRenderer::renderPage(document->article, environment, 0), *document->assets)) {
        std::cerr << shot.package << ": the page did not load\n";
        return 1;
    }
    page.settle();
    for (const std::string& error : page.scriptErrors()) {
        std::cerr << error << "\n";
    }
    if (!(shot.isWholePage ? page.saveWholePage(shot.picture) : page.savePicture(shot.picture))) {
        std::cerr << shot.picture << ": cannot be written\n";
        return 1;
    }
    return 0;
}

/// What the command line asks for; nothing, with a line on standard error, when it is wrong.
std::optional<Shot> shotOf(const QStringList& arguments) {
    static const std::map<QString, PreviewAppearance> appearances = {{"auto", PreviewAppearance::automatic},
                                                                     {"light", PreviewAppearance::light},
                                                                     {"dark", PreviewAppearance::dark}};
    QCommandLineParser parser;
    parser.setApplicationDescription("Takes a picture of an article package as the web engine shows it.");
    parser.addHelpOption();
    parser.addPositionalArgument("PACKAGE", "folder with an article.json");
    parser.addPositionalArgument("PICTURE", "PNG to write");
    parser.addOption({"width", "of the screen, 1024 by default", "points", "1024"});
    parser.addOption({"height", "of the screen, 768 by default", "points", "768"});
    parser.addOption({"appearance", "auto, light or dark", "appearance", "light"});
    parser.addOption({"whole-page", "the whole length of the page, not one screen of it"});
    parser.process(arguments);
    const QStringList files = parser.positionalArguments();
    const auto appearance = appearances.find(parser.value("appearance"));
    const int width = parser.value("width").toInt();
    const int height = parser.value("height").toInt();
    if (files.size() != 2 || appearance == appearances.end() || width < 1 || height < 1) {
        std::cerr << parser.helpText().toStdString();
        return std::nullopt;
    }
    return Shot{files[0].toStdString(), files[1].toStdString(),    width, height,
                appearance->second,     parser.isSet("whole-page")};
}

} // namespace

} // namespace quillon::test

int main(int argc, char** argv) {
    using namespace quillon::test;
    const BrowserEngine engine(argc, argv, EngineScheme::light);
    const auto shot = shotOf(QApplication::arguments());
    return shot ? take(*shot) : 2;
}
