#include "desktop/QtScheduler.h"

#include <QMetaObject>
#include <QObject>
#include <QThread>
#include <QThreadPool>
#include <QTimer>

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <utility>

namespace quillon {

namespace {

using Clock = std::chrono::steady_clock;

/// Pages keep a processor busy each; disk work mostly waits, and a disk that does not answer must not stop
/// the saves to the others.
int threadsOf(Lane lane) {
    constexpr int mostPages = 4;
    constexpr int mostDisk = 8;
    return lane == Lane::pages ? std::clamp(QThread::idealThreadCount() - 1, 1, mostPages) : mostDisk;
}

} // namespace

struct QtScheduler::Parts {
    const Clock::time_point start = Clock::now();
    QObject home; ///< lives on the main thread; actions wait in its queue and go with it
    std::array<QThreadPool, 2> pools;

    QThreadPool& pool(Lane lane) { return pools[lane == Lane::pages ? 0 : 1]; }
};

QtScheduler::QtScheduler() : m_parts(std::make_unique<Parts>()) {
    for (const Lane lane : {Lane::pages, Lane::disk}) {
        m_parts->pool(lane).setMaxThreadCount(threadsOf(lane));
    }
}

QtScheduler::~QtScheduler() {
    // Nobody will look at the pages that have not been begun, but what goes to disk is somebody's work.
    m_parts->pool(Lane::pages).clear();
    for (QThreadPool& pool : m_parts->pools) {
        pool.waitForDone();
    }
}

double QtScheduler::now() const {
    return std::chrono::duration<double>(Clock::now() - m_parts->start).count();
}

void QtScheduler::after(double seconds, std::function<void()> action) {
    const auto delay = std::chrono::milliseconds(std::lround(std::ceil(std::max(0.0, seconds) * 1000)));
    QTimer::singleShot(delay, Qt::PreciseTimer, &m_parts->home, std::move(action));
}

void QtScheduler::inBackground(Lane lane, std::function<std::function<void()>()> work) {
    m_parts->pool(lane).start([home = &m_parts->home, work = std::move(work)] {
        if (std::function<void()> action = work()) {
            QMetaObject::invokeMethod(home, std::move(action), Qt::QueuedConnection);
        }
    });
}

} // namespace quillon
