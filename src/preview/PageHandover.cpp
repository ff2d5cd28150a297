#include "preview/PageHandover.h"

#include "preview/BundleAddresses.h"

#include <algorithm>
#include <cstddef>

namespace quillon {

namespace {

constexpr std::string_view headTag = "<head";

/// Behind the tag that begins the head; 0 for a page without one.
std::size_t endOfProlog(std::string_view html) {
    for (std::size_t place = html.find(headTag); place != std::string_view::npos;
         place = html.find(headTag, place + 1)) {
        const std::size_t after = place + headTag.size();
        const std::size_t end = html.find('>', after);
        if (end != std::string_view::npos &&
            (html[after] == '>' || html[after] == ' ' || html[after] == '\t' || html[after] == '\n')) {
            return end + 1;
        }
    }
    return 0;
}

/// Appends `text` as what stands between the quotation marks of a JavaScript string.
void appendJavaScriptText(std::string& script, std::string_view text) {
    static constexpr std::string_view special("\"\\\n\r\0", 5);
    while (!text.empty()) {
        const std::size_t plain = std::min(text.find_first_of(special), text.size());
        script += text.substr(0, plain);
        text.remove_prefix(plain);
        if (text.empty()) {
            return;
        }
        switch (text.front()) {
        case '\n':
            script += "\\n";
            break;
        case '\r':
            script += "\\r";
            break;
        case '\0':
            script += "\\u0000";
            break;
        default:
            script += '\\';
            script += text.front();
        }
        text.remove_prefix(1);
    }
}

// The scripts are gone before the parser goes on, so that nothing of them is left in the document.
constexpr std::string_view removeItself = "document.currentScript.remove(); ";

} // namespace

PageHandover pageHandover(std::string_view html, std::uint64_t page) {
    const std::string text = withEngineAddresses(html);
    const std::size_t prologEnd = endOfProlog(text);
    PageHandover pieces;
    pieces.prolog = text.substr(0, prologEnd);
    pieces.script.reserve(text.size() + text.size() / 8);
    pieces.script = removeItself;
    pieces.script +=
        "Object.defineProperty(window, \"__quillonPage\", {value: " + std::to_string(page) + "}); ";
    pieces.script += "document.write(\"";
    appendJavaScriptText(pieces.script, std::string_view(text).substr(prologEnd));
    pieces.script += "\");";
    return pieces;
}

std::string handoverShell(std::string_view prolog, const ScrollPlace& place, std::string_view scriptURL) {
    std::string shell(prolog);
    if (place.left > 0 || place.top > 0) {
        shell += "<script>";
        shell += removeItself;
        shell += "document.addEventListener(\"DOMContentLoaded\", () => window.scrollTo(" +
                 std::to_string(static_cast<long long>(place.left)) + ", " +
                 std::to_string(static_cast<long long>(place.top)) + "), {once: true});</script>";
    }
    shell += "<script src=\"";
    shell += scriptURL;
    shell += "\"></script>";
    return shell;
}

} // namespace quillon
