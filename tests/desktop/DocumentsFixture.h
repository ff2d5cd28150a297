#pragma once

#include "WaitFor.h"

#include "desktop/DocumentController.h"
#include "desktop/DocumentWindow.h"
#include "desktop/QtScheduler.h"
#include "desktop/Settings.h"
#include "support/ScratchFolder.h"

#include <QMessageBox>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace quillon::test {

/// The program's scheduler with a tap: work for the disk can be held back for a while.
class TapScheduler : public Scheduler {
public:
    double now() const override { return m_base.now(); }
    void after(double seconds, std::function<void()> action) override {
        m_base.after(seconds, std::move(action));
    }
    void inBackground(Lane lane, std::function<std::function<void()>()> work) override {
        if (lane != Lane::pages && m_isHeld) {
            m_held.emplace_back(lane, std::move(work));
        } else {
            m_base.inBackground(lane, std::move(work));
        }
    }

    void hold() { m_isHeld = true; }
    void release() {
        m_isHeld = false;
        for (auto& [lane, work] : std::exchange(m_held, {})) {
            m_base.inBackground(lane, std::move(work));
        }
    }

private:
    QtScheduler m_base;
    bool m_isHeld = false;
    std::vector<std::pair<Lane, std::function<std::function<void()>()>>> m_held;
};

/// The program's documents with a folder, settings and recovery copies of their own.
class DocumentsTest : public testing::Test {
protected:
    DocumentsTest();
    ~DocumentsTest() override;

    std::string path(const std::string& below) const { return m_folder.path(below); }

    /// Writes a package with two assets; returns its path.
    std::string writePackage(const std::string& name, const std::string& title = "First");
    /// What another program does to the article of a package.
    void rewrite(const std::string& package, const std::string& title);
    std::string titleOnDisk(const std::string& package) const;

    /// Opens a package and waits for its window; null where none came.
    DocumentSession* open(const std::string& package);
    void restart(); ///< another run of the program, as far as it shows

    static void setTitle(DocumentSession& session, const std::string& title);
    static QString title(const DocumentSession& session);

    /// Waits for the question `name` on a window; null after a while.
    static QMessageBox* question(const QWidget& window, const char* name);
    static void answer(QMessageBox* box, const char* button);
    /// The same in one: whether the question came.
    static bool answer(const QWidget& window, const char* name, const char* button);
    /// Waits for the notice `text`, or with an empty text for none.
    static bool hasNotice(DocumentSession& session, const QString& text);
    static void pressNotice(DocumentSession& session, const char* button);
    /// Types `path` into the open Save As dialog.
    static bool choosePlace(DocumentSession& session, const std::string& path);

    static bool wait(const std::function<bool()>& condition) { return waitFor(condition); }
    bool hasSessions(std::size_t count) {
        return wait([&] { return m_controller->sessions().size() == count; });
    }
    std::size_t recoveryCopies() const;

    ScratchFolder m_folder;
    TapScheduler m_scheduler;
    std::unique_ptr<Settings> m_settings;
    std::unique_ptr<DocumentController> m_controller;
};

} // namespace quillon::test
