#include "desktop/QtScheduler.h"

#include <QTest>
#include <QThread>

#include <gtest/gtest.h>

#include <atomic>
#include <semaphore>

namespace quillon::test {

namespace {

TEST(QtSchedulerTest, workRunsElsewhereAndItsActionHere) {
    QtScheduler scheduler;
    for (const Lane lane : {Lane::pages, Lane::disk}) {
        QThread* worked = nullptr;
        QThread* acted = nullptr;
        scheduler.inBackground(lane, [&] {
            worked = QThread::currentThread();
            return [&] {
                acted = QThread::currentThread();
            };
        });
        EXPECT_EQ(acted, nullptr);
        ASSERT_TRUE(QTest::qWaitFor([&] { return acted != nullptr; }));
        EXPECT_EQ(acted, QThread::currentThread());
        EXPECT_NE(worked, acted);
    }
}

TEST(QtSchedulerTest, aHangingDiskHoldsUpNoPage) {
    QtScheduler scheduler;
    std::binary_semaphore disk(0);
    scheduler.inBackground(Lane::disk, [&] {
        disk.acquire();
        return std::function<void()>();
    });
    bool hasPage = false;
    scheduler.inBackground(Lane::pages, [&] {
        return [&] {
            hasPage = true;
        };
    });
    EXPECT_TRUE(QTest::qWaitFor([&] { return hasPage; }));
    disk.release();
}

TEST(QtSchedulerTest, actionsComeNotBeforeTheirTimeAndNeverWithinTheCall) {
    QtScheduler scheduler;
    double came = 0;
    bool cameAtOnce = false;
    const double asked = scheduler.now();
    scheduler.after(0.03, [&] { came = scheduler.now(); });
    scheduler.after(0, [&] { cameAtOnce = true; });
    EXPECT_FALSE(cameAtOnce);
    ASSERT_TRUE(QTest::qWaitFor([&] { return came > 0 && cameAtOnce; }));
    EXPECT_GE(came - asked, 0.03);
}

TEST(QtSchedulerTest, itsEndWaitsForWorkOnDiskAndDropsActions) {
    std::atomic<int> done = 0;
    bool hasActed = false;
    {
        QtScheduler scheduler;
        for (int job = 0; job < 40; ++job) {
            scheduler.inBackground(Lane::disk, [&] {
                QThread::msleep(1);
                ++done;
                return [&] {
                    hasActed = true;
                };
            });
        }
        scheduler.after(0, [&] { hasActed = true; });
    }
    EXPECT_EQ(done, 40);
    QCoreApplication::processEvents();
    EXPECT_FALSE(hasActed);
}

} // namespace

} // namespace quillon::test
