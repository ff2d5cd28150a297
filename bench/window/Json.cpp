#include "Measure.h"

#include "ArticleMaker.h"

#include "desktop/theme/Theme.h"
#include "editor/FindBar.h"
#include "editor/JSONSourceView.h"
#include "package/ArticleFileDocument.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>

#include <algorithm>
#include <fstream>

#include <malloc.h>

/// What 20 MB of JSON cost in the source view, beside Qt's own text widget with the same text.
namespace quillon::bench {

namespace {

constexpr std::size_t textBytes = 20'000'000;

/// Articles one behind the other, as a save writes them, until there are enough bytes.
std::string manyLines() {
    const std::string article = *sharedArticleEncoder.encode(
        sharedArticleDecoder.decode(makeArticle(2000, ArticleShape::mixed)).value());
    std::string text;
    while (text.size() < textBytes) {
        text += article + '\n';
    }
    return text;
}

/// The same bytes in one line, which costs Qt's widget many seconds for each step.
std::string oneLine(std::string text) {
    std::replace(text.begin(), text.end(), '\n', ' ');
    return text;
}

double residentMegabytes() {
    ::malloc_trim(0);
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("VmRSS:")) {
            return std::strtod(line.c_str() + 6, nullptr) / 1024;
        }
    }
    return 0;
}

void typeKey(QWidget* widget, int key, const QString& text = {}) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(widget, &press);
    QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier, text);
    QApplication::sendEvent(widget, &release);
}

/// The program's view with its find bar.
class OwnView {
public:
    explicit OwnView(const Shared<std::string>& text) {
        m_view.resize(1000, 800);
        m_bar.resize(600, 40);
        m_view.setJSON(text);
        m_view.show();
    }

    QAbstractScrollArea& area() { return m_view; }
    void beginFind() { m_bar.open(); }
    void type(QChar character) {
        typeKey(m_bar.findChild<QLineEdit*>(), character.toUpper().unicode(), QString(character));
    }
    void next() { m_bar.go(FindBar::Direction::forward); }
    void selectAllAndCopy() {
        m_view.selectAll();
        m_view.copy();
    }

private:
    JSONSourceView m_view{nullptr};
    FindBar m_bar{m_view, nullptr};
};

/// Qt's widget, searched as its interface offers.
class QtView {
public:
    explicit QtView(const Shared<std::string>& text) {
        m_view.resize(1000, 800);
        m_view.setReadOnly(true);
        m_view.setUndoRedoEnabled(false);
        m_view.setLineWrapMode(QPlainTextEdit::NoWrap);
        m_view.setFont(theme().monospacedFont(TextSize::Body));
        m_view.setPlainText(QString::fromStdString(*text));
        m_view.show();
    }

    QAbstractScrollArea& area() { return m_view; }
    void beginFind() {}
    void type(QChar character) {
        m_needle += character;
        const QString text = m_view.toPlainText();
        m_places.clear();
        for (auto place = text.indexOf(m_needle, 0, Qt::CaseInsensitive); place >= 0;
             place = text.indexOf(m_needle, place + m_needle.size(), Qt::CaseInsensitive)) {
            m_places.push_back(static_cast<int>(place));
        }
        select(0);
    }
    void next() { select(m_current + 1); }
    void selectAllAndCopy() {
        m_view.selectAll();
        m_view.copy();
    }

private:
    void select(std::size_t match) {
        m_current = match;
        QTextCursor cursor = m_view.textCursor();
        cursor.setPosition(m_places.at(match));
        cursor.setPosition(m_places.at(match) + static_cast<int>(m_needle.size()), QTextCursor::KeepAnchor);
        m_view.setTextCursor(cursor);
    }

    QPlainTextEdit m_view;
    QString m_needle;
    std::vector<int> m_places;
    std::size_t m_current = 0;
};

struct Figure {
    const char* title;
    double value;
    double atMost; ///< of the view; not positive for no bound
};

template <typename View>
std::vector<Figure> figuresOf(const Shared<std::string>& text) {
    const auto milliseconds = [](const auto& action) {
        const double begin = seconds();
        action();
        return (seconds() - begin) * 1e3;
    };
    const double memoryBefore = residentMegabytes();
    std::unique_ptr<View> view;
    std::vector<Figure> figures;
    const auto paint = [&] {
        QApplication::processEvents();
        view->area().viewport()->repaint();
    };
    const auto add = [&](const char* title, double value, double atMost) {
        figures.push_back({title, value, atMost});
    };
    add("open to first paint: ms", milliseconds([&] {
            view = std::make_unique<View>(text);
            paint();
        }),
        100);
    add("memory beside the text: MB", residentMegabytes() - memoryBefore, 16);
    add("scroll to the end: ms", milliseconds([&] {
            QScrollBar* bar = view->area().verticalScrollBar();
            bar->setValue(bar->maximum());
            paint();
        }),
        16);
    std::vector<double> keys;
    view->beginFind();
    for (const QChar character : QStringLiteral("columnStart")) {
        keys.push_back(milliseconds([&] {
            view->type(character);
            paint();
        }));
    }
    add("find, slowest key: ms", percentile(keys, 1), 50);
    std::vector<double> steps;
    for (int step = 0; step < 50; ++step) {
        steps.push_back(milliseconds([&] {
            view->next();
            paint();
        }));
    }
    add("next match, slowest of 50: ms", percentile(steps, 1), 16);
    add("select all and copy: ms", milliseconds([&] {
            view->selectAllAndCopy();
            paint();
        }),
        50);
    add("paste elsewhere: ms", milliseconds([&] { (void)QApplication::clipboard()->text().size(); }), 100);
    QApplication::clipboard()->clear();
    add("resize: ms", milliseconds([&] {
            view->area().resize(1400, 900);
            paint();
        }),
        16);
    add("theme change: ms", milliseconds([&] {
            theme().pin(Appearance::Dark);
            paint();
        }),
        50);
    theme().pin(std::nullopt);
    add("close: ms", milliseconds([&] { view.reset(); }), 16);
    return figures;
}

void compare(const std::string& name, const Shared<std::string>& text) {
    const std::vector<Figure> own = figuresOf<OwnView>(text);
    const std::vector<Figure> base = figuresOf<QtView>(text);
    for (std::size_t index = 0; index < own.size(); ++index) {
        const std::string title = name + ", " + own[index].title;
        print(title, own[index].value, own[index].atMost);
        print("  of that of Qt's widget", own[index].value / std::max(base[index].value, 1e-3));
    }
}

} // namespace

void measureJson() {
    theme().install();
    const Shared<std::string> text = manyLines();
    compare("JSON of 20 MB", text);
    for (const Figure& figure : figuresOf<OwnView>(oneLine(*text))) {
        print(std::string("JSON of 20 MB in one line, ") + figure.title, figure.value, figure.atMost);
    }
}

} // namespace quillon::bench
