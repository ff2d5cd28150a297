#pragma once

#include <functional>
#include <memory>

namespace quillon {

/// Turns the signals by which the system ends a program (SIGTERM, SIGINT, SIGHUP) into a call on the main
/// thread, as long as it lives. One at a time in a process.
class TerminationSignals {
public:
    explicit TerminationSignals(std::function<void()> action);
    ~TerminationSignals();

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace quillon
