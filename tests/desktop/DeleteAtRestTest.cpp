#include "WaitFor.h"

#include "desktop/DeleteAtRest.h"

#include <QObject>
#include <QPointer>

#include <gtest/gtest.h>

#include <chrono>

namespace quillon::test {

TEST(DeleteAtRest, waitsForTheEndOfLoopsWithinLoops) {
    using namespace std::chrono_literals;
    const QPointer<QObject> object(new QObject);
    bool wasThereInside = false;
    QEventLoop outer;
    QTimer::singleShot(0, &outer, [&] {
        // As while something is dragged.
        QEventLoop inner;
        deleteAtRest(object);
        QTimer::singleShot(200ms, &inner, &QEventLoop::quit);
        inner.exec();
        wasThereInside = !object.isNull();
        outer.quit();
    });
    outer.exec();
    EXPECT_TRUE(wasThereInside);
    EXPECT_TRUE(waitFor([&] { return object.isNull(); }));
}

} // namespace quillon::test
