#include "desktop/PreviewWebWidget.h"

#include "desktop/WebBundle.h"
#include "desktop/WebColorScheme.h"
#include "desktop/WebPage.h"
#include "desktop/WebRequests.h"
#include "desktop/WebView.h"
#include "preview/PageHandover.h"

#include <QEvent>
#include <QPointer>
#include <QVBoxLayout>
#include <QWebEngineHistory>
#include <QWebEngineProfile>
#include <QWebEngineScript>

#include <csignal>
#include <optional>
#include <utility>

namespace quillon {

namespace {

constexpr double longestSilence = 3.0; ///< seconds in which a web process must take up a new page
constexpr double calmTime = 30.0;      ///< seconds after which an earlier end of the process no longer counts
constexpr int mostRestarts = 2;        ///< of one page, within that time

/// Whether something at a place of the page, in CSS pixels, scrolls in a direction, the page itself included.
/// A frame of another page is not looked into: it may.
QString scrollsScript(const QPointF& place, const QPoint& direction) {
    return QStringLiteral(
               "((x, y, dx, dy) => {"
               "  const moves = (at, seen, whole, by) => by < 0 ? at > 1 : by > 0 && at + seen < whole - 1;"
               "  const scrolls = element =>"
               "    moves(element.scrollLeft, element.clientWidth, element.scrollWidth, dx) ||"
               "    moves(element.scrollTop, element.clientHeight, element.scrollHeight, dy);"
               "  const root = document.scrollingElement;"
               "  let element = document.elementFromPoint(x, y);"
               "  if (element?.closest('iframe, object, embed')) { return true; }"
               "  for (; element && element !== root; element = element.parentElement) {"
               "    const style = getComputedStyle(element);"
               "    const overflow = dx ? style.overflowX : style.overflowY;"
               "    if (/auto|scroll/.test(overflow) && scrolls(element)) { return true; }"
               "  }"
               "  return !!root && scrolls(root);"
               "})(%1, %2, %3, %4)")
        .arg(place.x())
        .arg(place.y())
        .arg(direction.x())
        .arg(direction.y());
}

/// The nearest component at a place of the page, in CSS pixels. What the page itself does something with on a
/// click is left to it, and so is a click that ends a selection.
QString componentScript(const QPointF& place) {
    return QStringLiteral(
               "((x, y) => {"
               "  const hit = document.elementFromPoint(x, y);"
               "  const controls = 'a, area, button, input, select, textarea, label, summary, video, audio,"
               " iframe, object, embed, [contenteditable], [onclick], [role=button], [tabindex]';"
               "  if (!hit || hit.closest(controls) || String(getSelection())) { return ''; }"
               "  return hit.closest('[data-component-id]')?.dataset.componentId ?? '';"
               "})(%1, %2)")
        .arg(place.x())
        .arg(place.y());
}

void endProcess(qint64 process) {
    if (process > 0) {
        ::kill(static_cast<pid_t>(process), SIGKILL);
    }
}

struct WantedPage {
    std::uint64_t number = 0;
    Shared<std::string> html;
    std::string baseURL;
};

} // namespace

struct PreviewWebWidget::Parts {
    Parts(const WebViewConfiguration& configuration, Scheduler& theScheduler, PreviewWebWidget& theWidget)
        : widget(theWidget), scheduler(theScheduler), delegate(*configuration.delegate),
          bundle(*configuration.schemeHandler), page(&profile, configuration) {}

    /// Runs a script in a world of its own, where the page's scripts change nothing.
    void ask(const QString& script, std::function<void(const QVariant&)> done);
    void prepare();
    void handOver(std::uint64_t number, PageHandover pieces);
    void endSilence();
    void askForFinish();
    void finish();
    void processEnded();
    ScrollPlace scrollPlace() const;
    void paintBackground();

    PreviewWebWidget& widget;
    Scheduler& scheduler;
    WebViewDelegate& delegate;
    WebRequests requests;
    WebBundle bundle;
    QWebEngineProfile profile; ///< without a name: nothing is kept on disk
    WebPage page;
    WebColorScheme colorScheme{page};
    WebView view;
    bool drawsBackground = true;
    double zoom = 1;
    bool passesWheel = false;
    WantedPage wanted;
    std::uint64_t lastNumber = 0;
    std::uint64_t takenUp = 0;    ///< the page whose script the engine has fetched last
    std::uint64_t finished = 0;   ///< the page that came up last
    std::uint64_t handedOver = 0; ///< the page that the engine was given last
    double silentSince = 0;       ///< when the first page was handed over that is not taken up yet
    bool hasAnswered = false;     ///< the process that runs now has taken up a page
    bool isWaiting = false;       ///< the process is gone until another page is wanted
    int restarts = 0;
    double lastEnd = 0;
    WhileAlive whileAlive;
};

PreviewWebWidget::PreviewWebWidget(const WebViewConfiguration& configuration, Scheduler& scheduler,
                                   QWidget* parent)
    : QWidget(parent), m_parts(std::make_unique<Parts>(configuration, scheduler, *this)) {
    Parts& parts = *m_parts;
    parts.profile.setUrlRequestInterceptor(&parts.requests);
    parts.profile.installUrlSchemeHandler(QByteArray::fromStdString(configuration.scheme), &parts.bundle);
    parts.profile.setHttpCacheType(QWebEngineProfile::MemoryHttpCache);
    parts.profile.setPersistentCookiesPolicy(QWebEngineProfile::NoPersistentCookies);
    parts.drawsBackground = configuration.drawsBackground;
    parts.paintBackground();
    parts.bundle.onPageRequested = [&parts](std::uint64_t page) {
        parts.takenUp = page;
        parts.hasAnswered = true;
    };
    connect(&parts.view, &WebView::reloadRequested, this, [this] { reload(); });
    connect(&parts.view, &WebView::clicked, this, [this, &parts](const QPointF& place) {
        parts.ask(componentScript(place / parts.zoom), [this](const QVariant& id) {
            if (!id.toString().isEmpty()) {
                Q_EMIT componentClicked(id.toString());
            }
        });
    });
    connect(
        &parts.view, &WebView::wheelTurned, this, [this, &parts](const QPointF& place, const QPoint& turn) {
            // The engine has the event as well and does nothing with it where nothing scrolls.
            if (parts.passesWheel) {
                parts.ask(scrollsScript(place / parts.zoom, -turn), [this, turn](const QVariant& scrolls) {
                    if (scrolls.isValid() && !scrolls.toBool()) {
                        Q_EMIT wheelPassed(turn);
                    }
                });
            }
        });
    connect(&parts.view, &WebView::keyboardShown, this, &PreviewWebWidget::keyboardShown);
    parts.view.setPage(&parts.page);
    parts.view.setAcceptDrops(false);
    parts.view.setObjectName(QStringLiteral("previewWebView"));
    parts.view.setAccessibleName(tr("Preview"));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(&parts.view);
    connect(&parts.page, &QWebEnginePage::loadFinished, this, [&parts] { parts.askForFinish(); });
    // Queued: the engine must not be asked anything while it tells of the end.
    connect(
        &parts.page, &QWebEnginePage::renderProcessTerminated, this, [&parts] { parts.processEnded(); },
        Qt::QueuedConnection);
}

PreviewWebWidget::~PreviewWebWidget() {
    // The view before the page, the page before its profile; the layout would delete the view once more.
    m_parts->view.setParent(nullptr);
}

void PreviewWebWidget::loadHTML(const Shared<std::string>& html, const std::string& baseURL) {
    m_parts->wanted.html = html;
    m_parts->wanted.baseURL = baseURL;
    m_parts->prepare();
}

void PreviewWebWidget::evaluateJavaScript(const std::string& script) {
    m_parts->page.runJavaScript(QString::fromStdString(script));
}

void PreviewWebWidget::setZoom(double zoom) {
    m_parts->zoom = zoom;
    m_parts->page.setZoomFactor(zoom);
}

void PreviewWebWidget::setPassesWheel(bool passes) {
    m_parts->passesWheel = passes;
}

void PreviewWebWidget::reload() {
    m_parts->restarts = 0;
    m_parts->prepare();
}

void PreviewWebWidget::evaluate(const QString& script, std::function<void(const QString&)> done) {
    m_parts->page.runJavaScript(script,
                                [done = std::move(done)](const QVariant& value) { done(value.toString()); });
}

QWebEngineView* PreviewWebWidget::view() const {
    return &m_parts->view;
}

qint64 PreviewWebWidget::processId() const {
    return m_parts->page.renderProcessPid();
}

void PreviewWebWidget::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        m_parts->paintBackground();
    }
}

void PreviewWebWidget::Parts::ask(const QString& script, std::function<void(const QVariant&)> done) {
    page.runJavaScript(script, QWebEngineScript::ApplicationWorld,
                       [alive = whileAlive.handle(), done = std::move(done)](const QVariant& value) {
                           alive([&] { done(value); })();
                       });
}

void PreviewWebWidget::Parts::prepare() {
    wanted.number = ++lastNumber;
    scheduler.inBackground(Lane::pages,
                           [this, number = wanted.number, html = wanted.html, alive = whileAlive.handle()] {
                               return alive([this, number, pieces = pageHandover(*html, number)]() mutable {
                                   handOver(number, std::move(pieces));
                               });
                           });
}

void PreviewWebWidget::Parts::handOver(std::uint64_t number, PageHandover pieces) {
    if (number != wanted.number) {
        return;
    }
    isWaiting = false;
    const std::string scriptURL = bundle.offerPage(number, Bytes(std::move(pieces.script)));
    // The engine would show an asset's former bytes under the same address.
    profile.clearHttpCache();
    const QUrl base(QString::fromStdString(wanted.baseURL));
    page.setBase(base);
    const QPointer<QWidget> keyboard = widget.window()->focusWidget();
    page.setHtml(QString::fromStdString(handoverShell(pieces.prolog, scrollPlace(), scriptURL)), base);
    if (keyboard && !widget.isAncestorOf(keyboard) && keyboard != widget.window()->focusWidget()) {
        // A new process takes it from whoever has it.
        keyboard->setFocus();
    }
    if (takenUp >= handedOver) {
        silentSince = scheduler.now();
    }
    handedOver = number;
    Q_EMIT widget.handedOver();
    scheduler.after(longestSilence, whileAlive([this] { endSilence(); }));
}

/// A page that never gives back its process, in an endless script for instance, would keep the next one out.
/// A process that has taken up nothing yet is only slow to start.
void PreviewWebWidget::Parts::endSilence() {
    const bool isOver = takenUp < handedOver && scheduler.now() - silentSince >= longestSilence;
    if (isOver && hasAnswered && !isWaiting) {
        endProcess(page.renderProcessPid());
    }
}

void PreviewWebWidget::Parts::askForFinish() {
    // Loads in a row and refused navigations are told as well, so the page must say which one it is.
    page.runJavaScript(QStringLiteral("window.__quillonPage"),
                       [this, alive = whileAlive.handle()](const QVariant& value) {
                           alive([this, number = value.toULongLong()] {
                               if (number == wanted.number && finished < number) {
                                   finished = number;
                                   finish();
                               }
                           })();
                       });
}

void PreviewWebWidget::Parts::finish() {
    // Each page is a navigation of its own, and going back to one would find nothing.
    page.history()->clear();
    delegate.didFinish();
    Q_EMIT widget.finished();
}

ScrollPlace PreviewWebWidget::Parts::scrollPlace() const {
    const QPointF place = page.scrollPosition();
    return {place.x(), place.y()};
}

/// The engine's own background would cover what stands behind the view: it takes that colour, and the page is
/// told whether that is a dark one.
void PreviewWebWidget::Parts::paintBackground() {
    const QColor behind = widget.palette().color(QPalette::Window);
    if (!drawsBackground) {
        page.setBackgroundColor(behind);
    }
    constexpr double middle = 0.5;
    colorScheme.set(behind.lightnessF() < middle ? WebColorScheme::Scheme::dark
                                                 : WebColorScheme::Scheme::light);
}

void PreviewWebWidget::Parts::processEnded() {
    const double now = scheduler.now();
    restarts = now - lastEnd > calmTime ? 1 : restarts + 1;
    lastEnd = now;
    hasAnswered = false;
    isWaiting = restarts > mostRestarts && takenUp == wanted.number;
    if (!isWaiting && wanted.number > 0) {
        prepare();
    }
    Q_EMIT widget.restarted(isWaiting);
}

} // namespace quillon
