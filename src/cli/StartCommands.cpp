#include "cli/StartCommands.h"

#include "base/Time.h"
#include "base/UnicodeText.h"
#include "cli/Output.h"
#include "package/BlankArticle.h"
#include "package/ComponentSamples.h"
#include "package/GeneratedArticle.h"
#include "package/NewArticle.h"
#include "package/PackageFile.h"
#include "package/RecentArticles.h"
#include "package/Templates.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

namespace quillon::cli {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view blankKind = "blank";
constexpr std::string_view generatedKind = "generated";

std::string joined(const std::vector<std::string_view>& names, std::string_view separator) {
    std::string text;
    for (const std::string_view name : names) {
        text += name;
        text += separator;
    }
    return text.substr(0, text.size() - separator.size());
}

std::string knownKinds() {
    std::vector<std::string_view> kinds = {blankKind, generatedKind};
    for (const ArticleTemplate& entry : allTemplates()) {
        kinds.push_back(entry.id);
    }
    return joined(kinds, ", ");
}

std::string knownRoles() {
    std::vector<std::string_view> roles;
    for (const ComponentRole role : ComponentRole::allNamed()) {
        roles.push_back(role.rawValue());
    }
    return joined(roles, ", ");
}

/// A line of values that can be taken apart at its tabs.
std::string line(std::vector<std::string> values) {
    std::ranges::transform(values, values.begin(), onOneLine);
    return joined({values.begin(), values.end()}, "\t") + "\n";
}

Result<ArticleFileDocument> documentOf(const std::string& kind, const std::optional<std::string>& prompt) {
    const auto now = static_cast<std::int64_t>(std::floor(wallClockSeconds()));
    if (kind == generatedKind) {
        if (prompt && !isValidUtf8(*prompt)) {
            return misused("--prompt: is not valid UTF-8");
        }
        return makeGeneratedDocument(prompt, now);
    }
    const auto found = std::ranges::find(allTemplates(), kind, &ArticleTemplate::id);
    if (kind != blankKind && found == allTemplates().end()) {
        return misused("no kind is named \"" + kind + "\"; the kinds are " + knownKinds());
    }
    if (prompt) {
        return misused("--prompt: only a generated article has one");
    }
    return makeNewDocument(kind == blankKind ? makeBlankArticle(now) : found->makeArticle(now));
}

} // namespace

Result<void> makeNew(const std::string& kind, const std::string& to,
                     const std::optional<std::string>& prompt) {
    if (to.empty()) {
        return misused("TO: the name of the folder is empty");
    }
    const auto document = documentOf(kind, prompt);
    if (!document) {
        return unexpected(document.error());
    }
    if (to == "-") {
        const auto json = sharedArticleEncoder.encode(document->article);
        return json ? writeOutput(*json, {}) : failed(kind + ": " + json.error().message);
    }
    std::error_code ignored;
    if (fs::exists(fs::symlink_status(to, ignored))) {
        return failed(to + ": exists already");
    }
    const auto report = savePackage(*document, to, Existing::refuse);
    if (!report) {
        return failed(report.error().message(to));
    }
    return {};
}

Result<void> listTemplates() {
    std::string text;
    for (const ArticleTemplate& entry : allTemplates()) {
        text += line({std::string(entry.id), std::string(rawValue(entry.category)), std::string(entry.title),
                      std::string(entry.subtitle)});
    }
    return writeOutput(text, {});
}

Result<void> sample(const std::string& role) {
    const ComponentRole named = ComponentRole::fromRawValue(role);
    if (named == ComponentRole::other) {
        return misused("no role is named \"" + role + "\"; the roles are " + knownRoles());
    }
    JsonWriter writer;
    writeValue(writer, makeSampleComponent(named));
    return writeOutput(writer.take(), {});
}

Result<void> listRecents(const std::vector<std::string>& folders, std::optional<std::size_t> limit) {
    std::vector<std::string> urls;
    for (const std::string& folder : folders) {
        std::error_code failure;
        fs::path path = fs::absolute(folder, failure);
        const fs::path last = path.has_filename() ? path.filename() : path.parent_path().filename();
        if (!failure && (last == "." || last == "..")) {
            path = fs::weakly_canonical(path, failure); // the card needs the folder's own name
        }
        if (failure) {
            return misused("FOLDER: \"" + folder + "\" names no folder");
        }
        urls.push_back((path / "").string()); // the "/" keeps folders that are gone
    }
    std::string text;
    for (const RecentArticleSummary& summary : loadRecentArticles(urls, limit.value_or(urls.size()))) {
        const auto& modified = summary.modifiedDate;
        text += line({
            summary.title,
            summary.subtitle,
            modified ? iso8601(static_cast<std::int64_t>(std::floor(*modified))) : "-",
            summary.thumbnailURL.value_or("-"),
            summary.isReadable ? "readable" : "unreadable",
        });
    }
    return writeOutput(text, {});
}

} // namespace quillon::cli
