#include "desktop/QtScheduler.h"

#include <QTest>
#include <QThread>

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <semaphore>

namespace quillon::test {

namespace {

constexpr Lane lanes[] = {Lane::pages, Lane::reads, Lane::saves, Lane::recovery};

TEST(QtSchedulerTest, workRunsElsewhereAndItsActionHere) {
    QtScheduler scheduler;
    for (const Lane lane : lanes) {
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

TEST(QtSchedulerTest, noLaneWaitsForAnother) {
    for (const Lane stuck : lanes) {
        QtScheduler scheduler;
        constexpr int most = 20;
        std::counting_semaphore<most> disk(0);
        for (int job = 0; job < most; ++job) {
            scheduler.inBackground(stuck, [&] {
                disk.acquire();
                return std::function<void()>();
            });
        }
        int others = 0;
        for (const Lane lane : lanes) {
            if (lane != stuck) {
                scheduler.inBackground(lane, [&] {
                    return [&] {
                        ++others;
                    };
                });
            }
        }
        EXPECT_TRUE(QTest::qWaitFor([&] { return others == 3; })) << static_cast<int>(stuck);
        disk.release(most);
    }
}

TEST(QtSchedulerTest, itsEndWaitsForNoReadThatHangs) {
    const auto disk = std::make_shared<std::binary_semaphore>(0);
    const auto isDone = std::make_shared<std::atomic<bool>>(false);
    {
        QtScheduler scheduler;
        scheduler.inBackground(Lane::reads, [disk, isDone] {
            disk->acquire();
            return [isDone] {
                *isDone = true;
            };
        });
        QTest::qWait(50);
    }
    disk->release();
    QTest::qWait(50);
    EXPECT_FALSE(*isDone) << "the action has nowhere to go";
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

TEST(QtSchedulerTest, itsEndWaitsForWritesAndDropsActions) {
    std::atomic<int> done = 0;
    bool hasActed = false;
    {
        QtScheduler scheduler;
        for (int job = 0; job < 40; ++job) {
            scheduler.inBackground(job % 2 ? Lane::saves : Lane::recovery, [&] {
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
