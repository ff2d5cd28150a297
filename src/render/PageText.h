#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillon::HTMLRenderer {

/// The growing text of a page. Fragments are appended; where a text depends on what is rendered behind it (a
/// container's dark class is numbered after its children's), a place is kept and filled later, and take()
/// joins all in one pass, so that no level of nesting copies what stands below it.
class PageText {
public:
    /// The text so far, to append to.
    std::string& out() { return m_text; }
    PageText& operator<<(std::string_view fragment) {
        m_text += fragment;
        return *this;
    }
    /// How much has been appended so far: two equal sizes mean that nothing came between them.
    size_t size() const { return m_text.size(); }

    /// A place at the end of the text so far, for insert(). Places are filled at most once each.
    using Place = size_t;
    Place keepPlace();
    /// Puts `text` at `place`.
    void insert(Place place, std::string text);

    /// The whole text, the places filled. The object is empty afterwards.
    std::string take();

private:
    struct Insertion {
        size_t offset;
        std::string text;
    };
    std::string m_text;
    std::vector<Insertion> m_insertions; ///< in the order of their offsets
};

} // namespace quillon::HTMLRenderer
