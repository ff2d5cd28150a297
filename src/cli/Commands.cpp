#include "cli/Commands.h"

#include "base/Time.h"
#include "cli/Input.h"
#include "cli/Output.h"
#include "package/PackageFile.h"
#include "render/Page.h"

#include <filesystem>
#include <iostream>

namespace quillon::cli {

namespace {

size_t countOf(const List<Component>& components) {
    size_t count = components.size();
    for (const Component& component : components) {
        count += component.components ? countOf(*component.components) : 0;
    }
    return count;
}

void appendOutline(std::string& out, const List<Component>& components, size_t level) {
    for (const Component& component : components) {
        out.append(2 * level, ' ');
        out += onOneLine(component.role.displayName()) + "  " + onOneLine(component.summary()) + "\n";
        if (component.components) {
            appendOutline(out, *component.components, level + 1);
        }
    }
}

std::string counted(size_t count, const std::string& noun) {
    return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

} // namespace

Result<void> render(const std::string& package, const EnvironmentOptions& options, std::optional<double> now,
                    const std::string& output) {
    const auto environment = environmentOf(options);
    if (!environment) {
        return unexpected(environment.error());
    }
    const auto article = readArticle(package);
    if (!article) {
        return unexpected(article.error());
    }
    return writeOutput(HTMLRenderer::renderPage(*article, *environment, now.value_or(wallClockSeconds())),
                       output);
}

Result<void> format(const std::string& package, const std::string& output) {
    const auto article = readArticle(package);
    if (!article) {
        return unexpected(article.error());
    }
    const auto json = sharedArticleEncoder.encode(*article);
    if (!json) {
        return failed(package + ": " + json.error().message);
    }
    return writeOutput(*json, output);
}

Result<void> check(const std::string& package) {
    const auto document = readDocument(package);
    if (!document) {
        return unexpected(document.error());
    }
    size_t bytes = 0;
    for (const auto& [key, contents] : *document->assets) {
        bytes += contents.size();
    }
    return writeOutput(counted(countOf(document->article.components), "component") + ", " +
                           counted(document->assets->size(), "asset") + ", " + counted(bytes, "byte") +
                           " of assets\n",
                       {});
}

Result<void> outline(const std::string& package) {
    const auto article = readArticle(package);
    if (!article) {
        return unexpected(article.error());
    }
    std::string text;
    appendOutline(text, article->components, 0);
    return writeOutput(text, {});
}

Result<void> save(const std::string& package, const std::string& to, Replace replace) {
    const std::string target = to.empty() ? packageFolder(package) : to;
    if (target.empty()) {
        return misused("an article alone has no package to be saved in: name the folder to save it TO");
    }
    std::error_code ignored;
    if (!to.empty() && std::filesystem::exists(std::filesystem::symlink_status(to, ignored))) {
        if (replace == Replace::never) {
            return failed(to + ": exists already; --force replaces a package");
        }
        if (!isPackage(to)) {
            return failed(to + ": is no package, so it is not replaced");
        }
    }
    const auto document = readDocument(package);
    if (!document) {
        return unexpected(document.error());
    }
    const auto report =
        savePackage(*document, target,
                    to.empty() || replace == Replace::existingPackage ? Existing::replace : Existing::refuse);
    if (!report) {
        return failed(report.error().message(target));
    }
    if (!report->leftBehind.empty()) {
        // The package is saved all the same.
        std::cerr << "quillon-cli: " << onOneLine(report->leftBehind)
                  << ": the former package, which could not be removed\n";
    }
    return {};
}

} // namespace quillon::cli
