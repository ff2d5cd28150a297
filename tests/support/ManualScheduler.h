#pragma once

#include "base/Scheduler.h"

#include <cstddef>
#include <deque>
#include <functional>
#include <map>
#include <utility>

namespace quillon::test {

/// A scheduler whose time stands still until a test lets it pass, and whose background work waits until the
/// test runs it. Everything happens on the test's own thread.
class ManualScheduler : public Scheduler {
public:
    double now() const override { return m_now; }

    void after(double seconds, std::function<void()> action) override {
        m_timers.emplace(m_now + seconds, std::move(action));
    }

    void inBackground(Lane lane, std::function<std::function<void()>()> work) override {
        m_work[lane].push_back(std::move(work));
    }

    /// Lets time pass; runs what falls due on the way at its time, also what that asks for anew.
    void advance(double seconds) {
        const double end = m_now + seconds;
        while (!m_timers.empty() && m_timers.begin()->first <= end) {
            auto timer = m_timers.extract(m_timers.begin());
            m_now = timer.key();
            timer.mapped()();
        }
        m_now = end;
    }

    /// Work that waits in the lane.
    std::size_t waitingWork(Lane lane) { return m_work[lane].size(); }
    /// Timers that have not fallen due.
    std::size_t waitingTimers() const { return m_timers.size(); }
    /// Answers of finished work that the main thread has not taken yet.
    std::size_t waitingAnswers() const { return m_answers.size(); }

    /// Does the work that has waited longest in the lane; its answer waits for `deliver`. False without work.
    bool work(Lane lane) {
        auto& waiting = m_work[lane];
        if (waiting.empty()) {
            return false;
        }
        const auto work = std::move(waiting.front());
        waiting.pop_front();
        m_answers.push_back(work());
        return true;
    }

    /// Runs the oldest answer on the main thread. False without one.
    bool deliver() {
        if (m_answers.empty()) {
            return false;
        }
        const auto answer = std::move(m_answers.front());
        m_answers.pop_front();
        if (answer) {
            answer();
        }
        return true;
    }

    /// Does all work of all lanes and runs all answers, also those that come up on the way. No time passes.
    void settle() {
        while (work(Lane::pages) || work(Lane::reads) || work(Lane::saves) || work(Lane::recovery) ||
               deliver()) {
        }
    }

private:
    double m_now = 1000;
    std::multimap<double, std::function<void()>> m_timers; ///< by the time when they fall due
    std::map<Lane, std::deque<std::function<std::function<void()>()>>> m_work;
    std::deque<std::function<void()>> m_answers;
};

} // namespace quillon::test
