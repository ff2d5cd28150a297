#include "render/PageText.h"

#include <cstring>
#include <utility>

namespace quillon::HTMLRenderer {

PageText::Place PageText::keepPlace() {
    m_insertions.push_back({m_text.size(), {}});
    return m_insertions.size() - 1;
}

void PageText::insert(Place place, std::string text) {
    m_insertions[place].text = std::move(text);
}

std::string PageText::take() {
    size_t inserted = 0;
    for (const Insertion& insertion : m_insertions) {
        inserted += insertion.text.size();
    }
    // In place and from the end, so that a large page is not copied as a whole once more.
    size_t end = m_text.size();
    m_text.resize(end + inserted);
    char* const text = m_text.data();
    for (auto insertion = m_insertions.rbegin(); inserted > 0; ++insertion) {
        std::memmove(text + insertion->offset + inserted, text + insertion->offset, end - insertion->offset);
        end = insertion->offset;
        inserted -= insertion->text.size();
        insertion->text.copy(text + end + inserted, insertion->text.size());
    }
    m_insertions.clear();
    return std::exchange(m_text, {});
}

} // namespace quillon::HTMLRenderer
