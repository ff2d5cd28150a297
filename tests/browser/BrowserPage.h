#pragma once

#include "package/ArticleFileDocument.h"

#include <memory>
#include <string>
#include <vector>

namespace quillon::test {

/// A page in the web engine, in a window of its own that nobody sees. It reaches nothing but the page itself,
/// `data:` and the assets it is given: every other request is refused and noted.
class BrowserPage {
public:
    /// The size of the window, in pixels, of which one is a point.
    BrowserPage(int width, int height);
    ~BrowserPage();

    /// Shows `html`, at most about a megabyte, with `assets` behind its `bundle://` addresses; returns when
    /// all its pictures have come or failed. False when the engine did not load it.
    bool load(const std::string& html, const Assets& assets = {});

    /// The value of a JavaScript expression: text as it is, any other value as JSON, and "exception: ..." for
    /// what it throws.
    std::string run(const std::string& expression);
    /// The computed value of a style property of the first element that `selector` finds.
    std::string styleOf(const std::string& selector, const std::string& property);

    /// Takes all animations to their end and waits until the page has been painted.
    void settle();
    /// The colour of a pixel of the window, as "#rrggbb".
    std::string colorAt(int x, int y);
    /// Writes what the window shows as PNG; false when that fails.
    bool savePicture(const std::string& path);
    /// The same for the whole length of the page, joined from one window after the other, so that lengths
    /// that follow the window's height stay as they are; what sticks to the window is seen in each.
    bool saveWholePage(const std::string& path);

    /// What scripts threw and reported as errors, with the line of each.
    const std::vector<std::string>& scriptErrors() const;
    /// The addresses that the page asked for in vain because they lead out of it.
    const std::vector<std::string>& refusedRequests() const;

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace quillon::test
