#include "cli/Commands.h"
#include "cli/Output.h"
#include "cli/StartCommands.h"

#include <CLI/CLI.hpp>

#include <csignal>
#include <iostream>
#include <new>

#ifdef __GLIBC__
#include <malloc.h>
#endif

namespace {

using namespace quillon::cli;

constexpr int usageStatus = 2;

int report(const Result<void>& result) {
    if (result) {
        return 0;
    }
    std::cerr << "quillon-cli: " << onOneLine(result.error().message) << "\n";
    return result.error().isUsage ? usageStatus : 1;
}

/// A command runs once and ends: memory that is given back between its steps would only be asked for again,
/// page by page.
void keepFreedMemory() {
#ifdef __GLIBC__
    constexpr int megabyte = 1 << 20;
    mallopt(M_MMAP_THRESHOLD, 1024 * megabyte);
    mallopt(M_TRIM_THRESHOLD, 1024 * megabyte);
    mallopt(M_TOP_PAD, 16 * megabyte);
#endif
}

int run(int argc, char** argv) {
    keepFreedMemory();
    // A reader that goes away shows as a failed write, with a message and a status of its own.
    std::signal(SIGPIPE, SIG_IGN);

    CLI::App app("Reads, renders and writes articles in Apple News Format.", "quillon-cli");
    app.set_version_flag("--version", "quillon-cli " QUILLON_VERSION);
    app.require_subcommand(1);

    std::string package;
    std::string output;
    const auto command = [&](const char* name, const char* description) {
        CLI::App* made = app.add_subcommand(name, description);
        made->add_option("PACKAGE", package,
                         "folder, path of an article.json, or - for JSON on standard input")
            ->required();
        return made;
    };
    const auto withOutput = [&](CLI::App* made) {
        made->add_option("-o,--output", output, "file to write in place of standard output")
            ->type_name("FILE");
    };

    EnvironmentOptions environment;
    std::optional<double> now;
    CLI::App* renderCommand = command("render", "write the article as one HTML page");
    renderCommand->add_option("--device", environment.device, "what the page is laid out for")
        ->check(CLI::IsMember(deviceNames()))
        ->capture_default_str();
    renderCommand->add_option("--orientation", environment.orientation)
        ->check(CLI::IsMember(orientationNames()))
        ->capture_default_str();
    renderCommand->add_option("--appearance", environment.appearance)
        ->check(CLI::IsMember(appearanceNames()))
        ->capture_default_str();
    renderCommand
        ->add_option("--pane", environment.pane, "size of the pane that the device auto follows, in points")
        ->type_name("WIDTHxHEIGHT")
        ->capture_default_str();
    renderCommand->add_option("--maps-token", environment.mapsToken, "token of the maps service");
    renderCommand->add_option("--maps-origin", environment.mapsOrigin, "origin that the page is shown under")
        ->type_name("URL");
    renderCommand
        ->add_option("--environment", environment.environment,
                     "fields of a preview environment that are laid over the rest, as a JSON object")
        ->type_name("JSON");
    renderCommand->add_option("--now", now, "the time against which tokens expire, in seconds since 1970")
        ->type_name("SECONDS");
    withOutput(renderCommand);

    CLI::App* formatCommand = command("format", "write the article as a save would, byte for byte");
    withOutput(formatCommand);
    CLI::App* checkCommand = command("check", "open the package as the editor does and count what it holds");
    CLI::App* outlineCommand = command("outline", "print the tree of components");

    std::string to;
    bool force = false;
    CLI::App* saveCommand =
        command("save", "read the whole package and write it, in place or to another folder");
    saveCommand->add_option("TO", to, "folder to save to");
    saveCommand->add_flag("--force", force, "replace TO when it is a package");

    std::string kind;
    std::string newFolder;
    std::optional<std::string> prompt;
    CLI::App* newCommand = app.add_subcommand("new", "make a first article");
    newCommand->add_option("KIND", kind, "blank, generated, or the id of a template")->required();
    newCommand->add_option("TO", newFolder, "folder to make, or - for the JSON alone on standard output")
        ->required();
    newCommand->add_option("--prompt", prompt, "the story idea of a generated article")->type_name("TEXT");

    CLI::App* templatesCommand =
        app.add_subcommand("templates", "list the templates: id, category, title, subtitle");

    std::string role;
    CLI::App* sampleCommand = app.add_subcommand("sample", "print a new component of a role as JSON");
    sampleCommand->add_option("ROLE", role, "as in an article, such as body or link_button")->required();

    std::vector<std::string> folders;
    std::optional<size_t> limit;
    CLI::App* recentsCommand =
        app.add_subcommand("recents", "list packages: title, subtitle, date, thumbnail, readable or not");
    recentsCommand->add_option("FOLDER", folders, "packages, in the order of the list")->required();
    recentsCommand->add_option("--limit", limit, "how many lines at most")
        ->check([](const std::string& text) {
            const bool isCount = !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
            return isCount ? std::string() : "expected a whole number, found \"" + text + "\"";
        })
        ->type_name("COUNT");

    // An empty name is a variable that was not set, not the current folder and not standard output.
    const CLI::Validator isNamed(
        [](const std::string& text) { return text.empty() ? "the name is empty" : ""; }, "", "named");
    for (CLI::App* made : app.get_subcommands({})) {
        for (const char* name : {"PACKAGE", "TO", "--output"}) {
            if (CLI::Option* option = made->get_option_no_throw(name)) {
                option->check(isNamed);
            }
        }
    }

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) {
            return app.exit(error); // help or the version, which were asked for
        }
        return report(misused(error.what()));
    }

    if (renderCommand->parsed()) {
        return report(render(package, environment, now, output));
    }
    if (formatCommand->parsed()) {
        return report(format(package, output));
    }
    if (checkCommand->parsed()) {
        return report(check(package));
    }
    if (outlineCommand->parsed()) {
        return report(outline(package));
    }
    if (newCommand->parsed()) {
        return report(makeNew(kind, newFolder, prompt));
    }
    if (templatesCommand->parsed()) {
        return report(listTemplates());
    }
    if (sampleCommand->parsed()) {
        return report(sample(role));
    }
    if (recentsCommand->parsed()) {
        return report(listRecents(folders, limit));
    }
    return report(save(package, to, force ? Replace::existingPackage : Replace::never));
}

} // namespace

int main(int argc, char** argv) {
    try {
        return run(argc, argv);
    } catch (const std::bad_alloc&) {
        // A small article can ask for a page of gigabytes: a long style on thousands of links.
        std::cerr << "quillon-cli: not enough memory\n";
        return 1;
    }
}
