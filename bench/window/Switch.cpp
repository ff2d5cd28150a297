#include "Measure.h"
#include "Scene.h"

#include "editor/EditorWindowState.h"
#include "editor/JSONSourceView.h"

#include <QEvent>

/// From the page to the JSON and back, beside the first opening of the same article's window.
namespace quillon::bench {

namespace {

constexpr int runs = 7;
constexpr auto settling = std::chrono::milliseconds(500);

/// Calls `finish` once a widget was painted for the first time.
class Painted : public QObject {
public:
    Painted(QWidget& widget, std::function<void()> finish) : QObject(&widget), m_finish(std::move(finish)) {
        widget.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && m_finish) {
            // The event comes ahead of the painting, which ends within this turn.
            QTimer::singleShot(0, this, std::exchange(m_finish, {}));
        }
        return QObject::eventFilter(watched, event);
    }

private:
    std::function<void()> m_finish;
};

struct Switches {
    std::vector<double> open;
    std::vector<double> json;
    std::vector<double> back;
    std::vector<double> call; ///< main thread alone, for the way back
    int openingRenders = 0;
    int renders = 0;
    int cacheHits = 0;

    void add(const ArticleDocument& article) {
        std::optional<Scene> scene;
        const double begin = seconds();
        scene.emplace(article);
        const LogCount log;
        scene->untilPage([&] { scene->window().show(); });
        open.push_back(seconds() - begin);
        // Where the first page was one for another size, the right one follows.
        timed([](const auto& finish) { QTimer::singleShot(settling, finish); });
        const int opened = log.renders();
        openingRenders += opened;
        json.push_back(timed([&](const auto& finish) {
            scene->editor().state().setMode(PreviewMode::json);
            new Painted(*scene->editor().json()->viewport(), finish);
        }));
        back.push_back(scene->untilPage([&] {
            const double start = seconds();
            scene->editor().state().setMode(PreviewMode::rendered);
            call.push_back(seconds() - start);
        }));
        renders += log.renders() - opened;
        cacheHits += log.cacheHits();
    }
};

void printBeside(const std::string& title, const std::vector<double>& times, const Switches& switches) {
    print(title + ": ms (median of 7)", percentile(times, 0.5) * 1e3);
    print("  / opening the window", percentile(times, 0.5) / percentile(switches.open, 0.5));
}

} // namespace

void measureSwitch() {
    // Starts the engine.
    Switches().add(sharedArticleDecoder.decode(makeArticle(10, ArticleShape::mixed)).value());
    for (const std::size_t components : {10U, 1000U}) {
        const auto article =
            sharedArticleDecoder.decode(makeArticle(components, ArticleShape::mixed)).value();
        Switches switches;
        for (int run = 0; run < runs; ++run) {
            switches.add(article);
        }
        const std::string name = ", " + std::to_string(components) + " components";
        print("opening a window to its page" + name + ": ms (median of 7)",
              percentile(switches.open, 0.5) * 1e3);
        printCount("  pages rendered for it, all runs", switches.openingRenders, runs);
        printBeside("page to JSON painted" + name, switches.json, switches);
        printBeside("JSON back to page" + name, switches.back, switches);
        print("  main thread within that call: ms", percentile(switches.call, 0.5) * 1e3);
        printCount("  pages taken from the cache, all runs", switches.cacheHits, runs);
        printCount("  pages rendered again, all runs", switches.renders, 0);
    }
}

} // namespace quillon::bench
