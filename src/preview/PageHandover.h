#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// How a page of any size gets into the web engine, which takes only a megabyte or two at once: it loads a
/// shell, the page up to the beginning of its head, and a script which, while the parser stands there, writes
/// all that follows. The document is the same as if it had come in one piece.
namespace quillon {

struct PageHandover {
    std::string prolog; ///< the page up to its head's first tag
    std::string script; ///< what writes the rest
};

/// The pieces of `html`, with addresses as the engine takes them. The script tells the page its number, as
/// `window.__quillonPage`.
PageHandover pageHandover(std::string_view html, std::uint64_t page);

/// Where the reader of a page stood, in CSS pixels.
struct ScrollPlace {
    double left = 0;
    double top = 0;
};

/// The shell to load under the page's base URL, whose parser waits for the script at `scriptURL`. It takes
/// the page to `place` before it is first shown.
std::string handoverShell(std::string_view prolog, const ScrollPlace& place, std::string_view scriptURL);

} // namespace quillon
