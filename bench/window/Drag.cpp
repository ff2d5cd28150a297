#include "BareWindow.h"
#include "Measure.h"
#include "Packages.h"
#include "Scene.h"

#include <QApplication>
#include <QWebEngineProfile>

#include <ctime>

/// A window's edge dragged, beside a web view alone with the same page that is dragged in the same way.
namespace quillon::bench {

namespace {

constexpr int steps = 60;
constexpr auto stepTime = std::chrono::milliseconds(16);
constexpr int stepWidth = 3;
constexpr auto rest = std::chrono::seconds(1); ///< after which nothing is on its way any more

/// Seconds that the processor has worked for this thread.
double threadTime() {
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

void wait(std::chrono::milliseconds time) {
    timed([time](const auto& finish) { QTimer::singleShot(time, Qt::PreciseTimer, qApp, finish); });
}

struct Drag {
    double thread = 0; ///< seconds of the main thread for each step, with all that follows before the next
    std::vector<double> calls; ///< seconds of each call to resize
};

Drag drag(QWidget& window) {
    Drag drag;
    const double start = threadTime();
    for (int step = 0; step < steps; ++step) {
        const double call = seconds();
        window.resize(window.width() - stepWidth, window.height());
        drag.calls.push_back(seconds() - call);
        wait(stepTime);
    }
    drag.thread = (threadTime() - start) / steps;
    return drag;
}

Drag dragBare(std::size_t components) {
    const Packages packages(1, components);
    QWebEngineProfile profile;
    BareWindow bare(profile, packages.pages().first());
    timed([&](const auto& finish) {
        QObject::connect(&bare.view(), &QWebEngineView::loadFinished, &bare.view(), finish,
                         Qt::SingleShotConnection);
    });
    wait(rest);
    return drag(bare);
}

void measureDrag(std::size_t components) {
    Scene scene(sharedArticleDecoder.decode(makeArticle(components, ArticleShape::mixed)).value());
    scene.untilPage([&] { scene.window().show(); });
    wait(rest);
    const LogCount log;
    const Drag ours = drag(scene.window());
    const int during = log.renders();
    const double settled = scene.untilPage([] {});
    wait(rest);
    const int after = log.renders() - during;
    scene.window().hide();
    const Drag bare = dragBare(components);
    const std::string name = ", " + std::to_string(components) + " components";
    print("one of 60 steps of a dragged edge" + name + ": ms of the main thread", ours.thread * 1e3);
    print("  web view alone: ms", bare.thread * 1e3);
    print("  / web view alone", ours.thread / bare.thread);
    print("  call to resize, p95: ms", percentile(ours.calls, 0.95) * 1e3);
    print("  web view alone: ms", percentile(bare.calls, 0.95) * 1e3);
    printCount("  pages rendered during the drag", during, 0);
    printCount("  pages rendered after it", after, 1);
    print("  last step to its page: ms", settled * 1e3);
}

} // namespace

void measureDrags() {
    for (const std::size_t components : {10U, 1000U, 10'000U}) {
        measureDrag(components);
    }
}

} // namespace quillon::bench
