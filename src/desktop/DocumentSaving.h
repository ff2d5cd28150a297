#pragma once

#include "base/Scheduler.h"
#include "desktop/SaveJob.h"
#include "document/DocumentStore.h"

#include <QString>

#include <functional>
#include <string>
#include <vector>

namespace quillon {

class DocumentWindow;

/// Saves one document: asks where and whether, writes in the background, tells what failed. Edits go on
/// meanwhile; a save asked for during a save follows it.
class DocumentSaving {
public:
    /// Told at the end of a save whether it came through.
    using Done = std::function<void(bool)>;

    struct Surroundings {
        DocumentStore& store;
        DocumentWindow& window;
        Scheduler& scheduler;
        std::function<bool(const std::string&)> isOpenElsewhere; ///< by its resolved path
        std::function<std::string()> folderForDialogs;
        Done ended; ///< comes before all others
    };

    explicit DocumentSaving(Surroundings surroundings);

    void save(Done done = {});
    void saveAs(Done done = {});

    /// Whether a save is under way, from the first question to the last byte.
    bool isBusy() const { return m_phase != Phase::idle; }
    /// Runs `action` once no save is under way; at once if none is.
    void whenIdle(std::function<void()> action);

private:
    enum class Phase { idle, asking, writing };

    void start();
    void askForPlace();
    void judge(const std::string& path);
    void takePlace(const std::string& path, const SavePlace& place);
    void refusePlace(const QString& text, const QString& detail);
    void askToReplace(const std::string& path, const PackageStamp& stamp);
    void lookAtConflict();
    void settleConflict(const SavePlace& place);
    bool lacksAssetsOf(const PackageStamp& stamp) const;
    void askAboutConflict(const PackageStamp& stamp);
    void refuseFolder(const QString& reason);
    void write(SaveOrder order);
    void finish(const std::string& path, SaveOutcome outcome);
    void tell(const std::string& path, const PackageFailure& failure);
    void end(bool isSaved);

    Surroundings m_around;
    Phase m_phase = Phase::idle;
    int m_number = 0; ///< of the save that is under way
    bool m_again = false;
    std::vector<Done> m_done;      ///< of the save that is under way
    std::vector<Done> m_doneAgain; ///< of the one that follows it
    std::vector<std::function<void()>> m_whenIdle;
    WhileAlive m_alive;
};

} // namespace quillon
