#include "editor/JSONSourceAccessible.h"

#include "editor/JSONSourceView.h"

#include <QAccessible>
#include <QAccessibleWidget>

#include <algorithm>

namespace quillon {

namespace {

/// The view's text in UTF-16 units, as assistive technology counts. Units are counted from the text's begin
/// each time, a few milliseconds for tens of megabytes.
class JSONSourceAccessible : public QAccessibleWidget, public QAccessibleTextInterface {
public:
    explicit JSONSourceAccessible(JSONSourceView& view)
        : QAccessibleWidget(&view, QAccessible::EditableText), m_view(view) {}

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface*>(this)
                                                  : QAccessibleWidget::interface_cast(type);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = true;
        state.multiLine = true;
        state.selectableText = true;
        return state;
    }

    void selection(int index, int* begin, int* end) const override {
        const TextRange selected = index == 0 ? m_view.selection() : TextRange{};
        *begin = unitOf(selected.begin);
        *end = unitOf(selected.end);
    }
    int selectionCount() const override { return m_view.hasSelection() ? 1 : 0; }
    void addSelection(int begin, int end) override { setSelection(0, begin, end); }
    void removeSelection(int) override { m_view.select(m_view.caret(), m_view.caret()); }
    void setSelection(int, int begin, int end) override { m_view.select(placeOf(begin), placeOf(end)); }
    int cursorPosition() const override { return unitOf(m_view.caret()); }
    void setCursorPosition(int unit) override { setSelection(0, unit, unit); }

    int characterCount() const override { return unitOf(m_view.text().size()); }
    QString text(int begin, int end) const override { return textOf({placeOf(begin), placeOf(end)}); }
    QString textAtOffset(int unit, QAccessible::TextBoundaryType type, int* begin, int* end) const override {
        return report(pieceAt(placeOf(unit), type), begin, end);
    }
    QString textBeforeOffset(int unit, QAccessible::TextBoundaryType type, int* begin,
                             int* end) const override {
        const TextRange here = pieceAt(placeOf(unit), type);
        const std::size_t before = m_view.lines().previous(here.begin);
        return report(here.begin > 0 ? pieceAt(before, type) : TextRange{}, begin, end);
    }
    QString textAfterOffset(int unit, QAccessible::TextBoundaryType type, int* begin,
                            int* end) const override {
        const std::size_t behind = pieceAt(placeOf(unit), type).end;
        const std::size_t size = m_view.text().size();
        return report(behind < size ? pieceAt(behind, type) : TextRange{size, size}, begin, end);
    }

    QRect characterRect(int unit) const override {
        const std::size_t place = placeOf(unit);
        QRect rect = m_view.rectOf(place);
        const QRect next = m_view.rectOf(m_view.lines().next(place));
        if (next.top() == rect.top() && next.left() > rect.left()) {
            rect.setRight(next.left() - 1);
        }
        return rect.translated(m_view.viewport()->mapToGlobal(QPoint()));
    }
    int offsetAtPoint(const QPoint& point) const override {
        return unitOf(m_view.placeAt(m_view.viewport()->mapFromGlobal(point), SourceHit::character));
    }
    void scrollToSubstring(int begin, int end) override { m_view.reveal({placeOf(begin), placeOf(end)}); }
    QString attributes(int, int* begin, int* end) const override {
        *begin = 0;
        *end = characterCount();
        return {};
    }

private:
    /// The part of the text around a place: lines are also paragraphs and sentences, and hold their end.
    TextRange pieceAt(std::size_t place, QAccessible::TextBoundaryType type) const {
        const TextLines& lines = m_view.lines();
        const std::size_t size = m_view.text().size();
        switch (type) {
        case QAccessible::CharBoundary:
            return {place, lines.next(place)};
        case QAccessible::WordBoundary:
            // A line's end is a piece of its own here.
            return place < size && m_view.text()[place] == '\n' ? TextRange{place, place + 1}
                                                                : lines.wordAt(place);
        case QAccessible::NoBoundary:
            return {0, size};
        default:
            const TextRange line = lines.line(lines.lineOf(place));
            return {line.begin, std::min(line.end + 1, size)};
        }
    }
    QString report(TextRange range, int* begin, int* end) const {
        *begin = unitOf(range.begin);
        *end = unitOf(range.end);
        return textOf(range);
    }
    QString textOf(TextRange range) const {
        const std::string_view bytes = std::string_view(m_view.text()).substr(range.begin, range.size());
        return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
    }
    int unitOf(std::size_t place) const {
        return static_cast<int>(utf16Length(std::string_view(m_view.text()).substr(0, place)));
    }
    std::size_t placeOf(int unit) const {
        return placeOfUtf16(m_view.text(), static_cast<std::size_t>(std::max(0, unit)));
    }

    JSONSourceView& m_view;
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
    auto* view = qobject_cast<JSONSourceView*>(object);
    return view ? new JSONSourceAccessible(*view) : nullptr;
}

} // namespace

void installJSONSourceAccessibility() {
    // Installing the same one again changes nothing.
    QAccessible::installFactory(makeAccessible);
}

void tellOfText(JSONSourceView& view) {
    // Not what was taken out and put in, which would send all of both texts to another process.
    if (QAccessible::isActive()) {
        QAccessibleEvent event(&view, QAccessible::VisibleDataChanged);
        QAccessible::updateAccessibility(&event);
        tellOfSelection(view);
    }
}

void tellOfSelection(JSONSourceView& view) {
    if (!QAccessible::isActive()) {
        return;
    }
    const auto unitOf = [&view](std::size_t place) {
        return static_cast<int>(utf16Length(std::string_view(view.text()).substr(0, place)));
    };
    QAccessibleTextSelectionEvent event(&view, unitOf(view.selection().begin), unitOf(view.selection().end));
    event.setCursorPosition(unitOf(view.caret()));
    QAccessible::updateAccessibility(&event);
    QAccessibleTextCursorEvent moved(&view, unitOf(view.caret()));
    QAccessible::updateAccessibility(&moved);
}

} // namespace quillon
