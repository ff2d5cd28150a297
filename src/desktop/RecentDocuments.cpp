#include "desktop/RecentDocuments.h"

#include "desktop/Background.h"
#include "desktop/DocumentText.h"

#include <algorithm>
#include <filesystem>

namespace quillon {

std::vector<std::string> withRecentPath(std::vector<std::string> list, const std::string& path) {
    list.erase(std::remove(list.begin(), list.end(), path), list.end());
    list.insert(list.begin(), path);
    list.resize(std::min(list.size(), RecentDocuments::mostDocuments));
    return list;
}

RecentDocuments::RecentDocuments(Settings& settings, Scheduler& scheduler, QObject* parent)
    : QObject(parent), m_settings(settings), m_scheduler(scheduler) {
    connect(&settings, &Settings::changed, this, &RecentDocuments::load);
    load();
    look();
}

void RecentDocuments::add(const std::string& path) {
    // Another program may have added its own since.
    m_settings.refresh();
    QStringList texts;
    for (const std::string& kept : withRecentPath(paths(), path)) {
        texts.append(encodedPath(kept));
    }
    m_settings.setRecentDocuments(texts);
}

void RecentDocuments::clear() {
    m_settings.setRecentDocuments({});
}

void RecentDocuments::look() {
    const auto marked = [documents = m_documents]() mutable {
        for (RecentDocument& document : documents) {
            std::error_code error;
            document.isMissing = !std::filesystem::is_directory(document.path, error);
        }
        return documents;
    };
    runOnDisk(m_scheduler, Lane::reads, m_alive, marked,
              [this, before = m_documents](std::vector<RecentDocument> found) {
                  if (m_documents == before) {
                      take(std::move(found));
                  }
              });
}

std::vector<std::string> RecentDocuments::paths() const {
    std::vector<std::string> list;
    for (const QString& text : m_settings.recentDocuments()) {
        if (std::string path = decodedPath(text); !path.empty() && list.size() < mostDocuments) {
            list.push_back(std::move(path));
        }
    }
    return list;
}

void RecentDocuments::load() {
    std::vector<RecentDocument> documents;
    for (std::string& path : paths()) {
        const auto known =
            std::find_if(m_documents.begin(), m_documents.end(),
                         [&](const RecentDocument& document) { return document.path == path; });
        const bool isMissing = known != m_documents.end() && known->isMissing;
        documents.push_back({std::move(path), isMissing});
    }
    take(std::move(documents));
}

void RecentDocuments::take(std::vector<RecentDocument> documents) {
    if (documents != m_documents) {
        m_documents = std::move(documents);
        Q_EMIT changed();
    }
}

} // namespace quillon
