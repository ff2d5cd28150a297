#include "desktop/QtScheduler.h"

#include <QMetaObject>
#include <QObject>
#include <QThread>
#include <QThreadPool>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <map>
#include <mutex>
#include <utility>

namespace quillon {

namespace {

using Clock = std::chrono::steady_clock;

constexpr Lane lanes[] = {Lane::pages, Lane::reads, Lane::saves, Lane::recovery};
constexpr int farewell = 200; ///< milliseconds that reads get to find out that nobody waits for them

/// Pages keep a processor busy each; disk work mostly waits, and a disk that does not answer must not stop
/// what goes to others.
int threadsOf(Lane lane) {
    constexpr int mostPages = 4;
    constexpr int mostDisk = 8;
    return lane == Lane::pages ? std::clamp(QThread::idealThreadCount() - 1, 1, mostPages) : mostDisk;
}

} // namespace

struct QtScheduler::Parts {
    /// The way to the main thread, for as long as there is one to go.
    struct Home {
        std::mutex mutex;
        std::unique_ptr<QObject> object = std::make_unique<QObject>(); ///< actions wait in its queue

        void post(std::function<void()> action) {
            const std::lock_guard guard(mutex);
            if (object) {
                QMetaObject::invokeMethod(object.get(), std::move(action), Qt::QueuedConnection);
            }
        }
    };

    const Clock::time_point start = Clock::now();
    std::shared_ptr<Home> home = std::make_shared<Home>();
    std::map<Lane, std::unique_ptr<QThreadPool>> pools;
};

QtScheduler::QtScheduler() : m_parts(std::make_unique<Parts>()) {
    for (const Lane lane : lanes) {
        auto& pool = m_parts->pools[lane] = std::make_unique<QThreadPool>();
        pool->setMaxThreadCount(threadsOf(lane));
    }
}

QtScheduler::~QtScheduler() {
    // Nobody will look at what has not been begun, but what goes to disk is somebody's work.
    for (const Lane lane : {Lane::pages, Lane::reads}) {
        m_parts->pools[lane]->clear();
    }
    for (const Lane lane : {Lane::pages, Lane::saves, Lane::recovery}) {
        m_parts->pools[lane]->waitForDone();
    }
    if (!m_parts->pools[Lane::reads]->waitForDone(farewell)) {
        // A disk does not answer: the pool would wait for it, so it goes with the process.
        (void)m_parts->pools[Lane::reads].release();
    }
    const std::lock_guard guard(m_parts->home->mutex);
    m_parts->home->object.reset();
}

double QtScheduler::now() const {
    return std::chrono::duration<double>(Clock::now() - m_parts->start).count();
}

void QtScheduler::after(double seconds, std::function<void()> action) {
    const auto delay = std::chrono::milliseconds(std::lround(std::ceil(std::max(0.0, seconds) * 1000)));
    QTimer::singleShot(delay, Qt::PreciseTimer, m_parts->home->object.get(), std::move(action));
}

void QtScheduler::inBackground(Lane lane, std::function<std::function<void()>()> work) {
    m_parts->pools[lane]->start([home = m_parts->home, work = std::move(work)] {
        if (std::function<void()> action = work()) {
            home->post(std::move(action));
        }
    });
}

} // namespace quillon
