#pragma once

#include "ArticleMaker.h"
#include "Measure.h"

#include "app/DocumentScene.h"
#include "base/Log.h"
#include "desktop/QtScheduler.h"

#include <QTemporaryDir>

#include <mutex>
#include <vector>

namespace quillon::bench {

/// Counts the lines of the performance log while it lives.
class LogCount {
public:
    LogCount() {
        setLogSink([this](std::string_view line) {
            const std::lock_guard lock(m_mutex);
            m_lines.emplace_back(line);
        });
    }
    ~LogCount() { setLogSink({}); }
    LogCount(const LogCount&) = delete;
    LogCount& operator=(const LogCount&) = delete;

    int renders() const { return count("preview.render.background"); }
    int cacheHits() const { return count("preview.cache.hit"); }

private:
    int count(std::string_view name) const {
        const std::lock_guard lock(m_mutex);
        int count = 0;
        for (const std::string& line : m_lines) {
            count += line.starts_with(name) ? 1 : 0;
        }
        return count;
    }

    mutable std::mutex m_mutex;
    std::vector<std::string> m_lines;
};

/// A document window with all of its content, made from an article that is read already.
class Scene {
public:
    explicit Scene(const ArticleDocument& article)
        : m_store({article, {}, {}}, file::NeverSaved{}, seconds),
          m_window(m_store,
                   [this](DocumentStore& store, DocumentWindow& window) {
                       m_editor = makeDocumentScene({.settings = m_settings, .scheduler = m_scheduler}, store,
                                                    window);
                       return m_editor;
                   },
                   {}) {}

    DocumentWindow& window() { return m_window; }
    EditorView& editor() { return *m_editor; }

    /// Runs the event loop until the page is shown that `start` brings about; returns the seconds it took.
    double untilPage(const std::function<void()>& start) {
        return timed([&](const auto& finish) {
            QObject::connect(m_editor, &EditorView::pageShown, m_editor, finish, Qt::SingleShotConnection);
            start();
        });
    }

private:
    QTemporaryDir m_folder;
    QtScheduler m_scheduler;
    Settings m_settings{m_folder.filePath("settings.ini"), nullptr};
    DocumentStore m_store;
    EditorView* m_editor = nullptr;
    DocumentWindow m_window;
};

} // namespace quillon::bench
