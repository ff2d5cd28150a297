#include "render/PageText.h"

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
    size_t size = m_text.size();
    for (const Insertion& insertion : m_insertions) {
        size += insertion.text.size();
    }
    if (size == m_text.size()) {
        m_insertions.clear();
        return std::exchange(m_text, {});
    }
    std::string joined;
    joined.reserve(size);
    size_t copied = 0;
    for (const Insertion& insertion : m_insertions) {
        joined.append(m_text, copied, insertion.offset - copied);
        joined += insertion.text;
        copied = insertion.offset;
    }
    joined.append(m_text, copied);
    m_text.clear();
    m_insertions.clear();
    return joined;
}

} // namespace quillon::HTMLRenderer
