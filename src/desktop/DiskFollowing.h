#pragma once

#include "base/Scheduler.h"
#include "desktop/DiskWatch.h"
#include "document/DocumentStore.h"

#include <functional>
#include <optional>
#include <string>

namespace quillon {

class DocumentWindow;

/// Keeps one document and its folder together while other programs write to it: an unedited document follows
/// the folder, for an edited one the user is told and decides.
class DiskFollowing {
public:
    struct Surroundings {
        DocumentStore& store;
        DocumentWindow& window;
        Scheduler& scheduler;
        std::function<void()> save;
        std::function<void()> saveAs;
    };

    explicit DiskFollowing(Surroundings surroundings);

    /// Looks at the folder soon; several calls shortly after each other become one look.
    void lookSoon();

    /// Takes over what the folder holds, after a question where edits would go.
    void revert();

private:
    enum class Reason { follow, reload, revert };

    void look();
    void takeLook(const FileState& before, const Expected<PackageStamp, DiskFailure>& found);
    void read(Reason reason);
    void takeRead(Reason reason, const FileState& before, const Expected<PackageStamp, DiskFailure>& stamp,
                  Expected<ArticleFileDocument, PackageFailure> document);
    void compareTouched(const PackageStamp& found);
    void readAssets();
    void showNotice();

    Surroundings m_around;
    DiskWatch m_watch;
    bool m_isDue = false;
    bool m_isReading = false;
    PackageStamp m_seen;                  ///< at the last look
    std::optional<PackageStamp> m_kept;   ///< the state of the folder that the user did not want
    std::optional<PackageStamp> m_assets; ///< the state of the folder whose assets were taken last
    WhileAlive m_alive;
};

} // namespace quillon
