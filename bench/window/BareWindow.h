#pragma once

#include <QStringList>
#include <QWebEngineView>

#include <optional>
#include <string>

namespace quillon::bench {

/// A document window on the screen of the benchmarks, and the page in it.
inline constexpr QSize windowSize(1372, 832);
inline constexpr QRect panePlace(260, 73, 672, 759);

/// The page of an article of `components` components in such a window.
std::string articlePage(std::size_t components);

/// What our windows are compared with: a window as large with nothing in it but a web view, as large as ours,
/// with an article's page from a file.
class BareWindow : public QWidget {
public:
    BareWindow(QWebEngineProfile& profile, const QString& page);

    QWebEngineView& view() { return m_view; }

private:
    QWebEnginePage m_page;
    QWebEngineView m_view;
};

/// The arguments that make the bench's own program show a bare window for each of the files `pages`.
QStringList bareArguments(const QStringList& pages);
/// Does so when the arguments say it, and gives the exit status.
std::optional<int> runAsBareWindows(int argc, char** argv);

} // namespace quillon::bench
