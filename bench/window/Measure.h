#pragma once

#include <QEventLoop>
#include <QTimer>

#include <chrono>
#include <functional>
#include <string>
#include <vector>

namespace quillon::bench {

inline double seconds() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch()).count();
}

/// Runs the event loop until `finish` is called by what `start` has begun; returns the seconds it took.
inline double timed(const std::function<void(std::function<void()> finish)>& start) {
    QEventLoop loop;
    const double begin = seconds();
    double end = begin;
    start([&] {
        end = seconds();
        loop.quit();
    });
    QTimer::singleShot(std::chrono::seconds(60), &loop, &QEventLoop::quit);
    loop.exec();
    return end - begin;
}

double percentile(std::vector<double> values, double share);

/// A line "title = value (wanted at most ...)"; without a bound where `atMost` is not positive.
void print(const std::string& title, double value, double atMost = 0);
/// A line "title = count" that holds only with exactly `wanted`.
void printCount(const std::string& title, int count, int wanted);
/// Whether every line held its bound.
bool allHold();

void measurePages();
void measureGaps();
void measureRecovery();
void measureStart();
void measureJson();
void measureOutline();
void measureMemory();
void measureSwitch();
void measureDrags();

} // namespace quillon::bench
