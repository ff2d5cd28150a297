#include "editor/JSONSourceView.h"

#include "desktop/theme/Painting.h"
#include "desktop/theme/Theme.h"
#include "desktop/widgets/WidgetState.h"
#include "editor/JSONSourceAccessible.h"
#include "editor/SharedTextMime.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace quillon {

namespace {

constexpr int inset = distance::around;
constexpr int autoScrollInterval = 30; ///< milliseconds

struct MotionKeys {
    CaretMotion motion;
    QKeySequence::StandardKey move;
    QKeySequence::StandardKey select;
};

constexpr MotionKeys motionKeys[] = {
    {CaretMotion::previousCharacter, QKeySequence::MoveToPreviousChar, QKeySequence::SelectPreviousChar},
    {CaretMotion::nextCharacter, QKeySequence::MoveToNextChar, QKeySequence::SelectNextChar},
    {CaretMotion::previousWord, QKeySequence::MoveToPreviousWord, QKeySequence::SelectPreviousWord},
    {CaretMotion::nextWord, QKeySequence::MoveToNextWord, QKeySequence::SelectNextWord},
    {CaretMotion::previousLine, QKeySequence::MoveToPreviousLine, QKeySequence::SelectPreviousLine},
    {CaretMotion::nextLine, QKeySequence::MoveToNextLine, QKeySequence::SelectNextLine},
    {CaretMotion::previousPage, QKeySequence::MoveToPreviousPage, QKeySequence::SelectPreviousPage},
    {CaretMotion::nextPage, QKeySequence::MoveToNextPage, QKeySequence::SelectNextPage},
    {CaretMotion::lineBegin, QKeySequence::MoveToStartOfLine, QKeySequence::SelectStartOfLine},
    {CaretMotion::lineEnd, QKeySequence::MoveToEndOfLine, QKeySequence::SelectEndOfLine},
    {CaretMotion::textBegin, QKeySequence::MoveToStartOfDocument, QKeySequence::SelectStartOfDocument},
    {CaretMotion::textEnd, QKeySequence::MoveToEndOfDocument, QKeySequence::SelectEndOfDocument},
};

bool goesUpOrDown(CaretMotion motion) {
    return motion == CaretMotion::previousLine || motion == CaretMotion::nextLine ||
           motion == CaretMotion::previousPage || motion == CaretMotion::nextPage;
}

/// What a scroll bar can count: some fifty million lines, and columns of one.
int bounded(double points) {
    constexpr int most = std::numeric_limits<int>::max() / 2;
    return static_cast<int>(std::min<double>(points, most));
}

} // namespace

JSONSourceView::JSONSourceView(QWidget* parent) : QAbstractScrollArea(parent) {
    installJSONSourceAccessibility();
    setObjectName(QStringLiteral("jsonSource"));
    setAccessibleName(tr("JSON"));
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::StrongFocus);
    setAutoFillBackground(true);
    viewport()->setCursor(Qt::IBeamCursor);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    m_layout.setLines(m_lines);
    connect(&theme(), &Theme::changed, this, [this] { applyTheme(); });
    applyTheme();
}

JSONSourceView::~JSONSourceView() = default;

void JSONSourceView::applyTheme() {
    m_layout.setFont(theme().monospacedFont(TextSize::Body));
    // What is behind the scroll bars; the rest is painted.
    QPalette colors = palette();
    colors.setColor(QPalette::Window, theme().colors().surface);
    setPalette(colors);
    updateBars();
    viewport()->update();
}

void JSONSourceView::setJSON(const Shared<std::string>& json) {
    if (m_json == json) {
        return;
    }
    m_matches = {};
    m_currentMatch.reset();
    m_json = json;
    m_lines = TextLines(*m_json);
    m_layout.setLines(m_lines);
    const std::size_t caret = std::min(m_caret, m_json->size());
    const std::size_t begin = m_lines.line(m_lines.lineOf(caret)).begin;
    m_anchor = m_caret = caret > begin ? m_lines.boundaryUpTo(caret, begin) : begin;
    m_column.reset();
    m_autoScroll.stop();
    m_dragged = {m_caret, m_caret}; // a drag that goes on does so from here
    updateBars();
    viewport()->update();
    tellOfText(*this);
    Q_EMIT textChanged();
}

TextRange JSONSourceView::selection() const {
    return {std::min(m_anchor, m_caret), std::max(m_anchor, m_caret)};
}

std::string JSONSourceView::selectedText() const {
    return m_json->substr(selection().begin, selection().size());
}

void JSONSourceView::select(std::size_t anchor, std::size_t caret) {
    setSelection(anchor, caret);
    m_column.reset();
    reveal({anchor, caret});
}

void JSONSourceView::reveal(TextRange range) {
    const QRect seen = viewport()->rect();
    const QRect wanted = rectOf(range.end);
    if (!seen.contains(wanted) || !seen.contains(rectOf(range.begin))) {
        // From the lines' beginning, where the match can be seen from there.
        horizontalScrollBar()->setValue(0);
        verticalScrollBar()->setValue(verticalScrollBar()->value() + wanted.center().y() - seen.center().y());
        scrollTo(range.begin);
        scrollTo(range.end);
    }
}

void JSONSourceView::selectAll() {
    setSelection(0, m_json->size());
    offerSelection();
}

void JSONSourceView::copy() const {
    if (hasSelection()) {
        QApplication::clipboard()->setMimeData(new SharedTextMime(m_json, selection()));
    }
}

/// Gives the selection to the middle mouse button, where the desktop has that.
void JSONSourceView::offerSelection() const {
    QClipboard* clipboard = QApplication::clipboard();
    if (hasSelection() && clipboard->supportsSelection()) {
        clipboard->setMimeData(new SharedTextMime(m_json, selection()), QClipboard::Selection);
    }
}

void JSONSourceView::setMatches(TextMatches matches) {
    m_matches = std::move(matches);
    m_currentMatch.reset();
    viewport()->update();
}

void JSONSourceView::setCurrentMatch(std::optional<std::size_t> index) {
    m_currentMatch = index;
    viewport()->update();
}

void JSONSourceView::setSelection(std::size_t anchor, std::size_t caret) {
    if (anchor == m_anchor && caret == m_caret) {
        return;
    }
    m_anchor = anchor;
    m_caret = caret;
    viewport()->update();
    tellOfSelection(*this);
}

/// Where the first line begins, in the viewport.
QPoint JSONSourceView::origin() const {
    return {inset - horizontalScrollBar()->value(), inset - verticalScrollBar()->value()};
}

std::size_t JSONSourceView::lineAt(int y) const {
    const int line = std::max(0, y - origin().y()) / m_layout.lineHeight();
    return std::min(static_cast<std::size_t>(line), m_lines.count() - 1);
}

QRect JSONSourceView::rectOf(std::size_t place) {
    const std::size_t line = m_lines.lineOf(place);
    const double top = origin().y() + static_cast<double>(line) * m_layout.lineHeight();
    const double left = origin().x() + m_layout.xOf(line, place);
    return {static_cast<int>(std::lround(left)), static_cast<int>(top), extent::caret, m_layout.lineHeight()};
}

std::size_t JSONSourceView::placeAt(QPoint point, SourceHit hit) {
    return m_layout.placeAt(lineAt(point.y()), point.x() - origin().x(), hit);
}

void JSONSourceView::updateBars() {
    const int width = bounded(std::ceil(m_layout.width()) + 2 * inset);
    const int height = bounded(static_cast<double>(m_lines.count()) * m_layout.lineHeight() + 2 * inset);
    const QSize most = maximumViewportSize();
    const bool fits = width <= most.width() && height <= most.height();
    const QSize seen = fits ? most : viewport()->size();
    const auto set = [](QScrollBar* bar, int size, int page, int step) {
        bar->setRange(0, std::max(0, size - page));
        bar->setPageStep(page);
        bar->setSingleStep(step);
    };
    set(verticalScrollBar(), height, seen.height(), m_layout.lineHeight());
    set(horizontalScrollBar(), width, seen.width(), bounded(4 * m_layout.columnWidth()));
}

void JSONSourceView::resizeEvent(QResizeEvent* event) {
    QAbstractScrollArea::resizeEvent(event);
    updateBars();
}

void JSONSourceView::scrollContentsBy(int dx, int dy) {
    if (showsKeyboard()) {
        viewport()->update(); // the ring stays where it is
    } else {
        viewport()->scroll(dx, dy);
    }
}

/// Scrolls as little as brings a place into sight.
void JSONSourceView::scrollTo(std::size_t place) {
    const auto scroll = [](QScrollBar* bar, int begin, int end, int size, int margin) {
        const int over = begin < margin ? begin - margin : std::max(0, end + margin - size);
        bar->setValue(bar->value() + over);
    };
    const QRect rect = rectOf(place);
    updateBars(); // the line may be wider than was known
    scroll(verticalScrollBar(), rect.top(), rect.bottom() + 1, viewport()->height(), 0);
    scroll(horizontalScrollBar(), rect.left(), rect.right() + 1, viewport()->width(), inset);
}

std::vector<SourceTint> JSONSourceView::tintsOf(std::size_t line) {
    const TextRange seen =
        m_layout.bytesBetween(line, -origin().x(), static_cast<double>(viewport()->width()) - origin().x());
    const ThemeColors& colors = theme().colors();
    std::vector<SourceTint> tints;
    std::size_t index = m_matches.firstFrom(seen.begin);
    // The one before may reach into what is seen.
    for (index -= index > 0 ? 1 : 0; index < m_matches.count(); ++index) {
        const TextRange match = m_matches.at(index);
        if (match.begin >= seen.end) {
            break;
        }
        tints.push_back({match, index == m_currentMatch ? colors.matchCurrent : colors.match});
    }
    const bool isMatch = m_currentMatch && m_matches.at(*m_currentMatch) == selection();
    if (hasSelection() && !isMatch) {
        tints.push_back({selection(), hasFocus() ? colors.accentTint : colors.selection});
    }
    return tints;
}

void JSONSourceView::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    const QRect dirty = event->rect();
    painter.fillRect(dirty, theme().colors().surface);
    painter.setPen(theme().colors().text);
    painter.setFont(m_layout.font());
    const double widthBefore = m_layout.width();
    const std::size_t caretLine = m_lines.lineOf(m_caret);
    const std::size_t last = lineAt(dirty.bottom());
    for (std::size_t line = lineAt(dirty.top()); line <= last; ++line) {
        const QPointF begin(origin().x(), origin().y() + static_cast<double>(line) * m_layout.lineHeight());
        m_layout.draw(painter, line, begin, viewport()->width(), tintsOf(line));
        if (line == caretLine && hasFocus()) {
            painter.fillRect(rectOf(m_caret), theme().colors().text);
        }
    }
    if (showsKeyboard()) {
        drawFocusRing(painter, viewport()->rect(), 0);
    }
    if (m_layout.width() > widthBefore) {
        QMetaObject::invokeMethod(this, &JSONSourceView::updateBars, Qt::QueuedConnection);
    }
}

bool JSONSourceView::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool isOwn = key->matches(QKeySequence::Copy) || key->matches(QKeySequence::SelectAll) ||
                           std::any_of(std::begin(motionKeys), std::end(motionKeys), [key](const auto& keys) {
                               return key->matches(keys.move) || key->matches(keys.select);
                           });
        if (isOwn) {
            event->accept();
            return true;
        }
    }
    return QAbstractScrollArea::event(event);
}

void JSONSourceView::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy)) {
        copy();
        return;
    }
    if (event->matches(QKeySequence::SelectAll)) {
        selectAll();
        return;
    }
    for (const MotionKeys& keys : motionKeys) {
        if (event->matches(keys.move) || event->matches(keys.select)) {
            moveCaret(keys.motion, event->matches(keys.select) ? Anchor::stays : Anchor::moves);
            return;
        }
    }
    event->ignore();
}

void JSONSourceView::moveCaret(CaretMotion motion, Anchor anchor) {
    std::size_t place = moved(motion);
    if (anchor == Anchor::moves && hasSelection()) {
        if (motion == CaretMotion::previousCharacter) {
            place = selection().begin;
        } else if (motion == CaretMotion::nextCharacter) {
            place = selection().end;
        }
    }
    if (!goesUpOrDown(motion)) {
        m_column.reset();
    }
    setSelection(anchor == Anchor::stays ? m_anchor : place, place);
    scrollTo(place);
    if (anchor == Anchor::stays) {
        offerSelection();
    }
}

std::size_t JSONSourceView::moved(CaretMotion motion) {
    const auto page = std::max(1, viewport()->height() / m_layout.lineHeight() - 1);
    switch (motion) {
    case CaretMotion::previousCharacter:
        return m_lines.previous(m_caret);
    case CaretMotion::nextCharacter:
        return m_lines.next(m_caret);
    case CaretMotion::previousWord:
        return m_lines.previousWord(m_caret);
    case CaretMotion::nextWord:
        return m_lines.nextWord(m_caret);
    case CaretMotion::previousLine:
        return movedByLines(-1);
    case CaretMotion::nextLine:
        return movedByLines(1);
    case CaretMotion::previousPage:
        return movedByLines(-page);
    case CaretMotion::nextPage:
        return movedByLines(page);
    case CaretMotion::lineBegin:
        return m_lines.line(m_lines.lineOf(m_caret)).begin;
    case CaretMotion::lineEnd:
        return m_lines.line(m_lines.lineOf(m_caret)).end;
    case CaretMotion::textBegin:
        return 0;
    case CaretMotion::textEnd:
        return m_json->size();
    }
    return m_caret;
}

/// Beyond the first and last line are the text's ends.
std::size_t JSONSourceView::movedByLines(std::ptrdiff_t count) {
    const std::size_t line = m_lines.lineOf(m_caret);
    if (!m_column) {
        m_column = m_layout.xOf(line, m_caret);
    }
    const auto last = static_cast<std::ptrdiff_t>(m_lines.count()) - 1;
    const std::ptrdiff_t wanted = static_cast<std::ptrdiff_t>(line) + count;
    if (wanted < 0 && line == 0) {
        return 0;
    }
    if (wanted > last && static_cast<std::ptrdiff_t>(line) == last) {
        return m_json->size();
    }
    const auto target = static_cast<std::size_t>(std::clamp<std::ptrdiff_t>(wanted, 0, last));
    return m_layout.placeAt(target, *m_column, SourceHit::nearestGap);
}

TextRange JSONSourceView::unitAt(QPoint point) {
    if (m_unit == Unit::line) {
        const std::size_t index = lineAt(point.y());
        return {m_lines.line(index).begin, std::min(m_lines.line(index).end + 1, m_json->size())};
    }
    if (m_unit == Unit::word) {
        return m_lines.wordAt(placeAt(point, SourceHit::character));
    }
    const std::size_t place = placeAt(point);
    return {place, place};
}

void JSONSourceView::beginDrag(QPoint point, Unit unit) {
    m_unit = unit;
    m_pointer = point;
    m_column.reset();
    m_dragged = unitAt(point);
    setSelection(m_dragged.begin, m_dragged.end);
}

void JSONSourceView::dragTo(QPoint point) {
    m_pointer = point;
    const TextRange unit = unitAt(point);
    if (unit.begin < m_dragged.begin) {
        setSelection(m_dragged.end, unit.begin);
    } else {
        setSelection(m_dragged.begin, unit.end);
    }
}

void JSONSourceView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    if (std::exchange(m_isByKeyboard, false)) {
        viewport()->update();
    }
    const QPoint point = event->position().toPoint();
    const bool isThird = m_sinceDoubleClick.isValid() &&
                         m_sinceDoubleClick.elapsed() < QApplication::doubleClickInterval() &&
                         (point - m_pointer).manhattanLength() < QApplication::startDragDistance();
    m_sinceDoubleClick.invalidate();
    if (isThird) {
        beginDrag(point, Unit::line);
    } else if (event->modifiers().testFlag(Qt::ShiftModifier)) {
        const std::size_t anchor = m_anchor;
        m_unit = Unit::character;
        m_column.reset();
        m_dragged = {anchor, anchor};
        dragTo(point);
    } else {
        beginDrag(point, Unit::character);
    }
}

void JSONSourceView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        beginDrag(event->position().toPoint(), Unit::word);
        m_sinceDoubleClick.start();
    }
}

void JSONSourceView::mouseMoveEvent(QMouseEvent* event) {
    if (!event->buttons().testFlag(Qt::LeftButton)) {
        return;
    }
    const QPoint point = event->position().toPoint();
    dragTo(point);
    if (viewport()->rect().contains(point)) {
        m_autoScroll.stop();
    } else if (!m_autoScroll.isActive()) {
        m_autoScroll.start(autoScrollInterval, this);
    }
}

void JSONSourceView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        m_autoScroll.stop();
        offerSelection();
    }
}

/// The further outside the pointer is, the quicker.
void JSONSourceView::timerEvent(QTimerEvent* event) {
    if (event->timerId() != m_autoScroll.timerId()) {
        QAbstractScrollArea::timerEvent(event);
        return;
    }
    const QRect seen = viewport()->rect();
    const auto outside = [](int value, int low, int high) {
        return value < low ? value - low : std::max(0, value - high);
    };
    QScrollBar* down = verticalScrollBar();
    QScrollBar* across = horizontalScrollBar();
    down->setValue(down->value() + outside(m_pointer.y(), seen.top(), seen.bottom()));
    across->setValue(across->value() + outside(m_pointer.x(), seen.left(), seen.right()));
    dragTo(m_pointer);
}

void JSONSourceView::contextMenuEvent(QContextMenuEvent* event) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](const QString& title, QKeySequence::StandardKey key, bool isEnabled, auto action) {
        QAction* entry = menu->addAction(title, this, action);
        entry->setShortcut(key);
        entry->setShortcutContext(Qt::WidgetShortcut);
        entry->setEnabled(isEnabled);
    };
    add(tr("Copy"), QKeySequence::Copy, hasSelection(), [this] { copy(); });
    add(tr("Select All"), QKeySequence::SelectAll, !m_json->empty(), [this] { selectAll(); });
    const bool isByKey = event->reason() == QContextMenuEvent::Keyboard;
    menu->popup(isByKey ? viewport()->mapToGlobal(rectOf(m_caret).bottomLeft()) : event->globalPos());
}

void JSONSourceView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    followFocusReason(m_isByKeyboard, event->reason());
    viewport()->update();
}

void JSONSourceView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    m_autoScroll.stop();
    viewport()->update();
}

} // namespace quillon
