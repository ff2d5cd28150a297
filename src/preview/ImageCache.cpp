#include "preview/ImageCache.h"

#include <utility>

namespace quillon {

SharedImage ImageCache::find(const std::string& key) {
    const auto place = m_places.find(key);
    if (place == m_places.end()) {
        return nullptr;
    }
    m_entries.splice(m_entries.begin(), m_entries, place->second);
    return place->second->image;
}

void ImageCache::insert(const std::string& key, SharedImage image) {
    if (m_places.contains(key) || image->memory() > m_bound) {
        return;
    }
    m_memory += image->memory();
    m_entries.push_front({key, std::move(image)});
    m_places.emplace(key, m_entries.begin());
    while (m_memory > m_bound) {
        m_memory -= m_entries.back().image->memory();
        m_places.erase(m_entries.back().key);
        m_entries.pop_back();
    }
}

} // namespace quillon
