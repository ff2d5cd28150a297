#pragma once

#include <QUrl>
#include <QWebEnginePage>

namespace quillon {

class WebViewDelegate;
struct WebViewConfiguration;

/// A page that may show itself and nothing else: whatever it asks of the user or the machine is refused
/// without a question.
class WebPage : public QWebEnginePage {
    Q_OBJECT

public:
    /// `profile` must outlive it.
    WebPage(QWebEngineProfile* profile, const WebViewConfiguration& configuration);

    /// Under which address the page is shown. Nobody serves that host, so no navigation may lead there.
    void setBase(const QUrl& base) { m_base = base; }

protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool isMainFrame) override;
    QWebEnginePage* createWindow(WebWindowType type) override;
    QStringList chooseFiles(FileSelectionMode mode, const QStringList& oldFiles,
                            const QStringList& acceptedTypes) override;
    void javaScriptAlert(const QUrl& origin, const QString& message) override;
    bool javaScriptConfirm(const QUrl& origin, const QString& message) override;
    bool javaScriptPrompt(const QUrl& origin, const QString& message, const QString& defaultValue,
                          QString* result) override;
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& message, int line,
                                  const QString& source) override;

private:
    void refuseRequests();

    WebViewDelegate& m_delegate;
    QUrl m_base;
};

} // namespace quillon
