#pragma once

#include "base/Scheduler.h"

#include <memory>

namespace quillon {

/// The scheduler of the running program, on the event loop of the thread that made it. When it is
/// destroyed, saves and recovery copies are waited for, and reads for a moment; actions are dropped.
class QtScheduler : public Scheduler {
public:
    QtScheduler();
    ~QtScheduler() override;

    double now() const override;
    void after(double seconds, std::function<void()> action) override;
    void inBackground(Lane lane, std::function<std::function<void()>()> work) override;

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace quillon
