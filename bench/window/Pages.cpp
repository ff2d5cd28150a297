#include "ArticleMaker.h"
#include "Measure.h"
#include "Subject.h"

#include "preview/PageHandover.h"
#include "render/Page.h"

#include <QBuffer>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlSchemeHandler>
#include <QWebEngineView>

/// From an edit of the store to its page on the screen, beside what the engine alone needs for the same page.
namespace quillon::bench {

namespace {

constexpr int runs = 25;

/// Gives the engine the second half of a page, made beforehand.
class ScriptHandler : public QWebEngineUrlSchemeHandler {
public:
    QByteArray script;

    void requestStarted(QWebEngineUrlRequestJob* job) override {
        auto* buffer = new QBuffer(job);
        buffer->setData(script);
        buffer->open(QIODevice::ReadOnly);
        job->reply("text/javascript;charset=utf-8", buffer);
    }
};

/// The engine with nothing of ours but the pieces of a page.
class BareEngine {
public:
    BareEngine() {
        m_profile.installUrlSchemeHandler("bundle", &m_handler);
        m_page.settings()->setAttribute(QWebEngineSettings::AutoLoadIconsForPage, false);
        m_view.setPage(&m_page);
        m_view.resize(1000, 800);
        m_view.show();
    }

    double load(const std::string& html) {
        const PageHandover pieces = pageHandover(html, ++m_number);
        m_handler.script = QByteArray::fromStdString(pieces.script);
        const std::string url = "bundle:///.page/" + std::to_string(m_number);
        const QString shell = QString::fromStdString(handoverShell(pieces.prolog, {}, url));
        return timed([&](const auto& finish) {
            QObject::connect(&m_page, &QWebEnginePage::loadFinished, &m_view, finish,
                             Qt::SingleShotConnection);
            m_page.setHtml(shell, QUrl("https://quillon.example"));
        });
    }

private:
    ScriptHandler m_handler;
    QWebEngineProfile m_profile;
    QWebEnginePage m_page{&m_profile};
    QWebEngineView m_view;
    std::uint64_t m_number = 0;
};

void measurePage(std::size_t components) {
    std::vector<double> ours;
    std::vector<double> whole;
    std::vector<double> engine;
    Subject subject(components);
    BareEngine bare;
    std::size_t pageBytes = 0;
    for (int run = 0; run < runs; ++run) {
        double handedOver = 0;
        const auto connection = QObject::connect(&subject.pane.webWidget(), &PreviewWebWidget::handedOver,
                                                 [&] { handedOver = seconds(); });
        const double begin = seconds();
        whole.push_back(timed([&](const auto& finish) {
            QObject::connect(&subject.pane, &PreviewPane::pageShown, &subject.pane, finish,
                             Qt::SingleShotConnection);
            subject.edit();
        }));
        QObject::disconnect(connection);
        ours.push_back(handedOver - begin);
        const std::string& html = *subject.cache.previewEntry()->html;
        pageBytes = html.size();
        engine.push_back(bare.load(html));
    }
    const std::string name =
        std::to_string(components) + " components (" + std::to_string(pageBytes / 1024) + " KiB)";
    const double bound = components == 1000 ? 10 : 0;
    print("edit to page, " + name + ": p50 ms", percentile(whole, 0.5) * 1e3);
    print("edit to page, " + name + ": p95 ms", percentile(whole, 0.95) * 1e3);
    print("  engine alone: p50 ms", percentile(engine, 0.5) * 1e3);
    print("  engine alone: p95 ms", percentile(engine, 0.95) * 1e3);
    print("  our part, edit to hand-over: p50 ms", percentile(ours, 0.5) * 1e3, bound);
    print("  our part, edit to hand-over: p95 ms", percentile(ours, 0.95) * 1e3);
    print("  whole / engine alone, p50", percentile(whole, 0.5) / percentile(engine, 0.5));
}

} // namespace

void measurePages() {
    for (const std::size_t components : {10U, 100U, 1000U}) {
        measurePage(components);
    }
}

/// Notes the longest time between two turns of the event loop.
class GapWatch : public QObject {
public:
    GapWatch() {
        m_timer.setInterval(0);
        m_timer.setTimerType(Qt::PreciseTimer);
        connect(&m_timer, &QTimer::timeout, this, [this] { turn(); });
        m_timer.start();
        m_last = seconds();
    }
    void reset() {
        m_longest = 0;
        m_last = seconds();
    }
    double longest() const { return m_longest; }
    void turn() {
        const double now = seconds();
        m_longest = std::max(m_longest, now - m_last);
        m_last = now;
    }

private:
    QTimer m_timer;
    double m_last = 0;
    double m_longest = 0;
};

void measureGaps() {
    Subject subject(10'000);
    BareEngine bare;
    GapWatch watch;
    std::vector<double> ours;
    std::vector<double> engine;
    std::vector<double> handOver;
    for (int run = 0; run < 5; ++run) {
        const auto connection =
            QObject::connect(&subject.pane.webWidget(), &PreviewWebWidget::handedOver, [&] {
                watch.turn();
                handOver.push_back(watch.longest());
            });
        timed([&](const auto& finish) {
            QObject::connect(&subject.pane, &PreviewPane::pageShown, &subject.pane, finish,
                             Qt::SingleShotConnection);
            watch.reset();
            subject.edit();
        });
        QObject::disconnect(connection);
        ours.push_back(watch.longest());
        const std::string& html = *subject.cache.previewEntry()->html;
        watch.reset();
        bare.load(html);
        engine.push_back(watch.longest());
    }
    print("longest gap between turns for one edit, 10,000 components, to the hand-over: ms (median of 5)",
          percentile(handOver, 0.5) * 1e3, 8);
    print("longest gap between turns for one edit, 10,000 components, to the page: ms (median of 5)",
          percentile(ours, 0.5) * 1e3);
    print("  engine alone: ms", percentile(engine, 0.5) * 1e3);
}

} // namespace quillon::bench
