#pragma once

#include "base/Scheduler.h"
#include "document/DocumentStore.h"
#include "document/RecoveryStore.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace quillon {

/// Keeps the recovery copy of one store up to date: a copy stands at the latest `delay` and the time of a
/// write after an edit. While the document is not edited there is none. Main thread only; writes happen in
/// the background, one at a time.
class RecoveryKeeper {
public:
    static constexpr double delay = 0.5; ///< seconds from an edit to the write that includes it

    RecoveryKeeper(DocumentStore& store, std::unique_ptr<RecoveryCopy> copy, Scheduler& scheduler);
    /// Leaves the copy on disk as it is.
    ~RecoveryKeeper();

    /// Writes at once, on this thread, what has not been written yet: for a program that must end now. A
    /// failure means that the copy does not hold the present article.
    Expected<void, DiskFailure> flush();
    /// The document is closed for good: no copy is needed any more. It is removed in the background.
    void close();

    /// Called with what went wrong when copies begin to fail, and with nothing when they work again.
    std::function<void(const std::optional<DiskFailure>&)> onFailure;

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace quillon
