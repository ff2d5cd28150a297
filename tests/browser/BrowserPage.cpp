#include "browser/BrowserPage.h"

#include <QBuffer>
#include <QEventLoop>
#include <QImage>
#include <QMimeDatabase>
#include <QPainter>
#include <QPixmap>
#include <QRegularExpression>
#include <QTimer>
#include <QWebEnginePage>
#include <QWebEngineProfile>
#include <QWebEngineSettings>
#include <QWebEngineUrlRequestInfo>
#include <QWebEngineUrlRequestInterceptor>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlSchemeHandler>
#include <QWebEngineView>

#include <algorithm>
#include <chrono>
#include <optional>

namespace quillon::test {

namespace {

using namespace std::chrono_literals;

constexpr auto longestLoad = 60s;
constexpr auto longestScript = 20s;
constexpr auto paintPause = 120ms; ///< from the frame that is ready to the window that shows it

/// Runs the event loop until `start` has called what it is given, or the time is over. A call that comes
/// later does no harm.
template <typename Start>
bool waitFor(std::chrono::milliseconds longest, Start start) {
    struct Wait {
        QEventLoop loop;
        bool isDone = false;
    };
    const auto wait = std::make_shared<Wait>();
    start([wait] {
        wait->isDone = true;
        wait->loop.quit();
    });
    QTimer::singleShot(longest, &wait->loop, &QEventLoop::quit);
    if (!wait->isDone) {
        wait->loop.exec();
    }
    return wait->isDone;
}

void pause(std::chrono::milliseconds duration) {
    waitFor(duration, [](auto) {});
}

/// With an empty host, so that the key stands in the path of the address, where it is left as it is. What is
/// only shown (`alt`, text) keeps the article's own form.
QString withEmptyHosts(const std::string& html) {
    static const QRegularExpression reference(
        R"(((?:\b(?:src|poster|href)\s*=\s*|\burl\(\s*)["']?)bundle://)");
    return QString::fromStdString(html).replace(reference, QStringLiteral("\\1bundle:///"));
}

/// Answers `bundle:` from memory.
class BundleHandler : public QWebEngineUrlSchemeHandler {
public:
    Assets assets;

    void requestStarted(QWebEngineUrlRequestJob* job) override {
        const QUrl url = job->requestUrl();
        const QString path = url.path(QUrl::FullyDecoded);
        const Bytes* bytes = find(path);
        if (!bytes) {
            // A stray % in the address makes the engine encode every one of them again.
            bytes = find(QUrl::fromPercentEncoding(path.toUtf8()));
        }
        if (!bytes) {
            job->fail(QWebEngineUrlRequestJob::UrlNotFound);
            return;
        }
        auto* buffer = new QBuffer(job);
        buffer->setData(QByteArray(bytes->view().data(), static_cast<qsizetype>(bytes->size())));
        buffer->open(QIODevice::ReadOnly);
        const QMimeType type = QMimeDatabase().mimeTypeForFile(path, QMimeDatabase::MatchExtension);
        job->reply(type.name().toUtf8(), buffer);
    }

private:
    const Bytes* find(const QString& path) const {
        std::string key = path.toStdString();
        key.erase(0, key.find_first_not_of('/'));
        key.erase(key.find_last_not_of('/') + 1);
        const auto found = assets.find(key);
        return found == assets.end() ? nullptr : &found->second;
    }
};

class RequestFilter : public QWebEngineUrlRequestInterceptor {
public:
    std::vector<std::string> refused;

    void interceptRequest(QWebEngineUrlRequestInfo& request) override {
        static const QStringList own = {"data", "bundle", "about", "blob"};
        if (!own.contains(request.requestUrl().scheme())) {
            request.block(true);
            refused.push_back(request.requestUrl().toString().toStdString());
        }
    }
};

class Page : public QWebEnginePage {
public:
    using QWebEnginePage::QWebEnginePage;
    std::vector<std::string> errors;

protected:
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& message, int line,
                                  const QString& source) override {
        // A file that did not come is reported like a script's error but is none.
        if (level == ErrorMessageLevel && !message.startsWith("Failed to load resource")) {
            errors.push_back(source.left(80).toStdString() + ":" + std::to_string(line) + ": " +
                             message.toStdString());
        }
    }
};

} // namespace

struct BrowserPage::Parts {
    RequestFilter filter;
    BundleHandler bundle;
    QWebEngineProfile profile; ///< without a name: nothing is kept on disk
    Page page{&profile};
    QWebEngineView view;
};

BrowserPage::BrowserPage(int width, int height) : m_parts(std::make_unique<Parts>()) {
    m_parts->profile.setUrlRequestInterceptor(&m_parts->filter);
    m_parts->profile.installUrlSchemeHandler("bundle", &m_parts->bundle);
    QWebEngineSettings* settings = m_parts->page.settings();
    settings->setAttribute(QWebEngineSettings::AutoLoadIconsForPage, false);
    settings->setAttribute(QWebEngineSettings::ShowScrollBars, false);
    m_parts->view.setPage(&m_parts->page);
    m_parts->view.resize(width, height);
    m_parts->view.show();
}

BrowserPage::~BrowserPage() = default;

bool BrowserPage::load(const std::string& html, const Assets& assets) {
    m_parts->bundle.assets = assets;
    const auto isLoaded = std::make_shared<bool>(false);
    const bool isFinished = waitFor(longestLoad, [&](auto done) {
        const auto finish = [isLoaded, done](bool ok) {
            *isLoaded = ok;
            done();
        };
        QObject::connect(&m_parts->page, &QWebEnginePage::loadFinished, &m_parts->view, finish,
                         Qt::SingleShotConnection);
        m_parts->page.setHtml(withEmptyHosts(html), QUrl("https://page.example/"));
    });
    return isFinished && *isLoaded;
}

std::string BrowserPage::run(const std::string& expression) {
    const std::string script = "(function () { try { const value = (" + expression +
                               "\n); return typeof value === 'string' ? value : JSON.stringify(value); }"
                               " catch (error) { return 'exception: ' + error; } })()";
    // Shared with the callback, which may come after the time is over.
    const auto result = std::make_shared<std::string>();
    const bool isDone = waitFor(longestScript, [&](auto done) {
        m_parts->page.runJavaScript(QString::fromStdString(script), [result, done](const QVariant& value) {
            *result = value.toString().toStdString();
            done();
        });
    });
    return isDone ? *result : "exception: no answer";
}

std::string BrowserPage::styleOf(const std::string& selector, const std::string& property) {
    return run("getComputedStyle(document.querySelector(`" + selector + "`)).getPropertyValue('" + property +
               "')");
}

void BrowserPage::settle() {
    run("document.getAnimations().forEach(animation => animation.finish())");
    run("(window.framesShown = 0,"
        " requestAnimationFrame(() => requestAnimationFrame(() => { window.framesShown = 2; })))");
    for (int turn = 0; turn < 100 && run("window.framesShown") != "2"; ++turn) {
        pause(20ms);
    }
    pause(paintPause);
}

std::string BrowserPage::colorAt(int x, int y) {
    return m_parts->view.grab().toImage().pixelColor(x, y).name().toStdString();
}

bool BrowserPage::savePicture(const std::string& path) {
    return m_parts->view.grab().save(QString::fromStdString(path), "PNG");
}

bool BrowserPage::saveWholePage(const std::string& path) {
    const int step = m_parts->view.height();
    const int height = std::max(step, std::stoi(run("document.documentElement.scrollHeight")));
    QImage whole(m_parts->view.width(), height, QImage::Format_RGB32);
    QPainter painter(&whole);
    for (int top = 0; top < height; top += step) {
        const int reached = std::stoi(run("(scrollTo(0, " + std::to_string(top) + "), Math.round(scrollY))"));
        settle();
        painter.drawPixmap(0, reached, m_parts->view.grab());
    }
    painter.end();
    return whole.save(QString::fromStdString(path), "PNG");
}

const std::vector<std::string>& BrowserPage::scriptErrors() const {
    return m_parts->page.errors;
}

const std::vector<std::string>& BrowserPage::refusedRequests() const {
    return m_parts->filter.refused;
}

} // namespace quillon::test
