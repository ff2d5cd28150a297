#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QTimer>

#include <chrono>

namespace quillon::test {

/// Runs the event loop until `condition` holds; false when the time is over first. QTest::qWaitFor sleeps
/// between the events, of which the web engine needs hundreds for a page.
template <typename Condition>
bool waitFor(Condition condition, std::chrono::milliseconds longest = std::chrono::seconds(20)) {
    using namespace std::chrono_literals;
    const auto end = std::chrono::steady_clock::now() + longest;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        QEventLoop loop;
        QTimer::singleShot(5ms, &loop, &QEventLoop::quit);
        loop.exec();
        // What was closed from the test itself, outside any loop, waits for this.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

} // namespace quillon::test
