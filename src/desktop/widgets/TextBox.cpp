#include "desktop/widgets/TextBox.h"

#include "desktop/theme/Painting.h"
#include "desktop/theme/Theme.h"
#include "desktop/widgets/WidgetState.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTextBlock>

#include <algorithm>
#include <cmath>
#include <utility>

namespace quillon {

namespace {

/// Keeps the scroll bar off the focus ring, in points.
constexpr int edge = extent::focusRing;

} // namespace

TextBox::TextBox(Binding<std::string> binding, QWidget* parent)
    : TextBox(std::move(binding), Options(), parent) {}

TextBox::TextBox(Binding<std::string> binding, Options options, QWidget* parent)
    : QPlainTextEdit(parent), m_typed(std::move(binding)), m_options(std::move(options)) {
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setLineWidth(edge);
    setAttribute(Qt::WA_Hover);
    viewport()->setAutoFillBackground(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setTabChangesFocus(true);
    setUndoRedoEnabled(false);
    setPlaceholderText(m_options.prompt);
    setFont(theme().font(TextSize::Body));
    // Room belongs outside of the viewport, where no text scrolls through.
    document()->setDocumentMargin(0);
    connect(this, &QPlainTextEdit::textChanged, this, &TextBox::write);
    connect(&theme(), &Theme::changed, this, [this] { update(); });
    refresh();
    fitHeight();
}

QString TextBox::text() const {
    // The toolkit's plain text has spaces in place of those that do not break.
    return document()->toRawText().replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
}

void TextBox::refresh() {
    const auto typing = isBeingTyped(*this) ? TypedText::Typing::goesOn : TypedText::Typing::isOver;
    if (const auto shown = m_typed.toShow(typing)) {
        showText(*shown, typing);
    }
}

void TextBox::showText(const QString& text, TypedText::Typing typing) {
    const QString before = this->text();
    if (text == before) {
        return;
    }
    const QScopedValueRollback<bool> guard(m_isShowing, true);
    const int anchor = textCursor().anchor();
    const int caret = textCursor().position();
    const int scrolled = verticalScrollBar()->value();
    setPlainText(text);
    m_last = this->text();
    fitHeight();
    if (typing == TypedText::Typing::goesOn) {
        QTextCursor cursor = textCursor();
        cursor.setPosition(movedCaret(before, m_last, anchor));
        cursor.setPosition(movedCaret(before, m_last, caret), QTextCursor::KeepAnchor);
        setTextCursor(cursor);
        verticalScrollBar()->setValue(scrolled);
    }
}

void TextBox::write() {
    // The toolkit tells of changes, too, that leave the text as it is.
    if (QString now = text(); !m_isShowing && now != m_last) {
        m_last = std::move(now);
        fitHeight();
        m_typed.write(*this, m_last);
    }
}

void TextBox::fitHeight() {
    const double line = QFontMetricsF(font()).height();
    int lines = 0;
    double height = 0;
    QTextBlock block = document()->firstBlock();
    for (; block.isValid() && lines <= m_options.mostLines; block = block.next()) {
        (void)blockBoundingRect(block); // lays it out
        const QTextLayout& layout = *block.layout();
        for (int index = 0; index < layout.lineCount() && ++lines <= m_options.mostLines; ++index) {
            height += layout.lineAt(index).height();
        }
    }
    height = std::max(height, line * m_options.leastLines);
    const int above = std::max(edge + 1, static_cast<int>(extent::control - line) / 2);
    constexpr int beside = distance::beside - edge;
    // The toolkit shows a line whole only where a point is left below it.
    setViewportMargins(beside, above - edge, beside, above - edge - 1);
    setVerticalScrollBarPolicy(lines > m_options.mostLines ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    setFixedHeight(std::max(extent::control, static_cast<int>(std::ceil(height)) + 2 * above));
}

void TextBox::resizeEvent(QResizeEvent* event) {
    QPlainTextEdit::resizeEvent(event);
    fitHeight();
}

void TextBox::contextMenuEvent(QContextMenuEvent* event) {
    openTextMenu(createStandardContextMenu(), event->globalPos());
}

bool TextBox::event(QEvent* event) {
    if (event->type() == QEvent::Paint) {
        QPainter painter(this);
        drawFieldBody(painter, rect(), widgetState(*this));
        return true;
    }
    if (event->type() == QEvent::ShortcutOverride && isHistoryKey(*static_cast<QKeyEvent*>(event))) {
        event->ignore();
        return false;
    }
    return QPlainTextEdit::event(event);
}

void TextBox::keyPressEvent(QKeyEvent* event) {
    if (isHistoryKey(*event)) {
        event->ignore();
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
}

void TextBox::focusOutEvent(QFocusEvent* event) {
    QPlainTextEdit::focusOutEvent(event);
    if (!endsTyping(event->reason())) {
        return;
    }
    if (const auto shown = m_typed.toShow(TypedText::Typing::isOver)) {
        showText(*shown, TypedText::Typing::isOver);
    }
}

} // namespace quillon
