#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace quillon {

/// Where work away from the main thread goes. None waits for work of another kind, whatever disk that hangs
/// on. At the end of the program saves and recovery copies are waited for, and nothing else.
enum class Lane { pages, reads, saves, recovery };

/// The main thread's clock and its way to other threads, as rules need them that must be testable without a
/// window and without waiting. Everything is called on the main thread, from which all actions run, too.
/// Whoever may be gone before an action runs guards it with `WhileAlive`.
class Scheduler {
public:
    virtual ~Scheduler() = default;

    /// Seconds since some moment; never runs backwards.
    virtual double now() const = 0;

    /// Runs `action` after `seconds` at the earliest, never within this call.
    virtual void after(double seconds, std::function<void()> action) = 0;

    /// Runs `work` on another thread, then on the main thread the action it returned. Several may run at
    /// once.
    virtual void inBackground(Lane lane, std::function<std::function<void()>()> work) = 0;
};

/// Makes actions do nothing once their owner is gone: a member of the owner, which wraps them. Its
/// handles, for work on other threads to wrap its action with, do not keep the owner alive.
class WhileAlive {
public:
    class Handle {
    public:
        explicit Handle(std::weak_ptr<const int> owner) : m_owner(std::move(owner)) {}

        std::function<void()> operator()(std::function<void()> action) const {
            return [owner = m_owner, action = std::move(action)] {
                if (!owner.expired()) {
                    action();
                }
            };
        }

    private:
        std::weak_ptr<const int> m_owner;
    };

    WhileAlive() = default;
    WhileAlive(const WhileAlive&) = delete;
    WhileAlive& operator=(const WhileAlive&) = delete;

    Handle handle() const { return Handle(m_owner); }
    std::function<void()> operator()(std::function<void()> action) const {
        return handle()(std::move(action));
    }

private:
    std::shared_ptr<const int> m_owner = std::make_shared<const int>(0);
};

} // namespace quillon
