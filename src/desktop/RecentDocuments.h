#pragma once

#include "base/Scheduler.h"
#include "desktop/Settings.h"

#include <QObject>

#include <string>
#include <vector>

namespace quillon {

/// A folder that was opened or saved before.
struct RecentDocument {
    std::string path;
    bool isMissing = false; ///< nothing stood there at the last look

    bool operator==(const RecentDocument&) const = default;
};

/// `list` with `path` at its beginning, once, and cut to the length of the list of recent documents.
std::vector<std::string> withRecentPath(std::vector<std::string> list, const std::string& path);

/// The documents the user worked on, the latest first; kept in the settings, where every running program
/// adds its own.
class RecentDocuments : public QObject {
    Q_OBJECT

public:
    static constexpr std::size_t mostDocuments = 20;

    RecentDocuments(Settings& settings, Scheduler& scheduler, QObject* parent = nullptr);

    const std::vector<RecentDocument>& documents() const { return m_documents; }

    void add(const std::string& path);
    void clear();
    /// Looks, in the background, which of them are there.
    void look();

Q_SIGNALS:
    void changed();

private:
    std::vector<std::string> paths() const;
    void load();
    void take(std::vector<RecentDocument> documents);

    Settings& m_settings;
    Scheduler& m_scheduler;
    std::vector<RecentDocument> m_documents;
    WhileAlive m_alive;
};

} // namespace quillon
