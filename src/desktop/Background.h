#pragma once

#include "base/Scheduler.h"

#include <memory>
#include <optional>
#include <utility>

namespace quillon {

/// Runs `work` on `lane`, then `done` with its result on the main thread, unless the owner of
/// `alive` is gone by then. What `done` holds is let go on the main thread, too.
template <typename Work, typename Done>
void runOnDisk(Scheduler& scheduler, Lane lane, const WhileAlive& alive, Work work, Done done) {
    auto result = std::make_shared<std::optional<decltype(work())>>();
    auto action = alive([result, done = std::move(done)]() mutable { done(std::move(**result)); });
    scheduler.inBackground(lane, [work = std::move(work), result, action = std::move(action)]() mutable {
        result->emplace(work());
        result.reset();
        return std::move(action);
    });
}

} // namespace quillon
