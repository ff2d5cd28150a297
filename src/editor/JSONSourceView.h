#pragma once

#include "base/Shared.h"
#include "document/TextLines.h"
#include "document/TextMatches.h"
#include "editor/SourceLayout.h"

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <QElapsedTimer>

#include <optional>
#include <string>

namespace quillon {

/// Where a caret goes.
enum class CaretMotion {
    previousCharacter,
    nextCharacter,
    previousWord,
    nextWord,
    previousLine,
    nextLine,
    previousPage,
    nextPage,
    lineBegin,
    lineEnd,
    textBegin,
    textEnd
};

/// The article's JSON as a save writes it, to read, select, copy and search. One colour and one font; long
/// lines are not wrapped. It shares the text and keeps only an index of its lines, so that tens of megabytes
/// are as quick as one. Places are byte offsets.
class JSONSourceView : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit JSONSourceView(QWidget* parent);
    ~JSONSourceView() override;

    /// An equal text leaves selection and scroll place alone; another gives up the selection and the matches,
    /// and keeps the scroll place as far as the text reaches.
    void setJSON(const Shared<std::string>& json);
    const std::string& text() const { return *m_json; }
    const TextLines& lines() const { return m_lines; }

    std::size_t caret() const { return m_caret; }
    TextRange selection() const;
    bool hasSelection() const { return m_anchor != m_caret; }
    std::string selectedText() const;
    /// Selects from `anchor` to `caret` and reveals that.
    void select(std::size_t anchor, std::size_t caret);
    /// Scrolls where not both ends are in sight; the second end comes to the middle.
    void reveal(TextRange range);

    Q_INVOKABLE void selectAll();
    /// Puts the selected text on the clipboard, if there is any. The window's commands call it by its name.
    Q_INVOKABLE void copy() const;

    /// Shows what a search has found in this view's text.
    void setMatches(TextMatches matches);
    const TextMatches& matches() const { return m_matches; }
    /// Shows one match as that where the search is; nothing for none.
    void setCurrentMatch(std::optional<std::size_t> index);

    /// Where a place is, and the place at a point, in the viewport.
    QRect rectOf(std::size_t place);
    std::size_t placeAt(QPoint point, SourceHit hit = SourceHit::nearestGap);

Q_SIGNALS:
    void textChanged();

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void timerEvent(QTimerEvent* event) override;

private:
    enum class Unit { character, word, line };
    enum class Anchor { moves, stays };

    void applyTheme();
    void updateBars();
    QPoint origin() const;
    std::size_t lineAt(int y) const;
    std::vector<SourceTint> tintsOf(std::size_t line);
    void scrollTo(std::size_t place);
    void setSelection(std::size_t anchor, std::size_t caret);
    void moveCaret(CaretMotion motion, Anchor anchor);
    std::size_t moved(CaretMotion motion);
    std::size_t movedByLines(std::ptrdiff_t count);
    TextRange unitAt(QPoint point);
    void beginDrag(QPoint point, Unit unit);
    void dragTo(QPoint point);
    void offerSelection() const;
    bool showsKeyboard() const { return m_isByKeyboard && hasFocus(); }

    Shared<std::string> m_json;
    TextLines m_lines;
    SourceLayout m_layout;
    TextMatches m_matches;
    std::optional<std::size_t> m_currentMatch;
    std::size_t m_anchor = 0;
    std::size_t m_caret = 0;
    std::optional<double> m_column; ///< where the caret wants to be in the lines it goes up and down
    Unit m_unit = Unit::character;
    TextRange m_dragged;      ///< the unit in which the drag began
    QPoint m_pointer;         ///< of the drag, in the viewport
    QBasicTimer m_autoScroll; ///< while the pointer is outside
    QElapsedTimer m_sinceDoubleClick;
    bool m_isByKeyboard = false; ///< the keyboard came here by a key
};

} // namespace quillon
