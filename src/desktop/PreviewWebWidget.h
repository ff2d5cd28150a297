#pragma once

#include "base/Scheduler.h"
#include "preview/PreviewWebView.h"

#include <QWidget>

#include <functional>
#include <memory>

class QWebEngineView;

namespace quillon {

/// The web view of the preview. The page lives in a process of its own, keeps nothing on disk and reaches
/// nothing of the machine. While a page comes up the one before stays, and the next one begins where its
/// reader stood. A web process that dies, or no longer listens when a new page is wanted, is replaced.
class PreviewWebWidget : public QWidget, public PreviewWebView {
    Q_OBJECT

public:
    PreviewWebWidget(const WebViewConfiguration& configuration, Scheduler& scheduler,
                     QWidget* parent = nullptr);
    ~PreviewWebWidget() override;

    void loadHTML(const Shared<std::string>& html, const std::string& baseURL) override;
    void evaluateJavaScript(const std::string& script) override;

    /// How large the page is shown, 1 being its own size.
    void setZoom(double zoom);

    /// Whether `wheelPassed` tells of the wheel over the page.
    void setPassesWheel(bool passes);

    /// Brings the current page up once more.
    void reload();

    /// Runs `script` and hands its value as text to `done`; for tests.
    void evaluate(const QString& script, std::function<void(const QString&)> done);
    QWebEngineView* view() const;
    qint64 processId() const; ///< of the page's process; 0 when there is none

Q_SIGNALS:
    /// The web process ended and was started again with the current page, or, where that happens again and
    /// again, waits for the next one.
    void restarted(bool isWaiting);
    /// A component of the page was clicked, and nothing in it that does something by itself. `id` is whatever
    /// the page says.
    void componentClicked(const QString& id);
    /// The wheel was turned over the page, by `turn` in eighths of a degree, and nothing there scrolls that
    /// way.
    void wheelPassed(const QPoint& turn);
    /// Whether the page has the keyboard and shows it, as it came there by a key.
    void keyboardShown(bool isShown);
    /// The engine was given the page to load.
    void handedOver();
    /// The page is complete.
    void finished();

protected:
    void changeEvent(QEvent* event) override;

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace quillon
