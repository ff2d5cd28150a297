#include "desktop/widgets/TextField.h"

#include "desktop/theme/Painting.h"
#include "desktop/theme/Symbols.h"
#include "desktop/theme/Theme.h"
#include "desktop/widgets/PushButton.h"
#include "desktop/widgets/WidgetState.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>

#include <limits>
#include <utility>

namespace quillon {

namespace {

/// What the toolkit leaves at each side of a line, besides the margins asked for.
constexpr int toolkitMargin = 2;
constexpr int textMargin = distance::beside - toolkitMargin;
constexpr int clearSide = extent::control - 2 * distance::inside;

} // namespace

TextField::TextField(Binding<std::string> binding, QWidget* parent)
    : TextField(std::move(binding), Options(), parent) {}

TextField::TextField(Binding<std::string> binding, Options options, QWidget* parent)
    : QLineEdit(parent), m_typed(std::move(binding)), m_options(std::move(options)) {
    setFrame(false);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    // A text of the document is never cut.
    setMaxLength(std::numeric_limits<int>::max());
    setPlaceholderText(m_options.prompt);
    setFont(m_options.kind == Kind::number ? theme().numberFont(TextSize::Body)
                                           : theme().font(TextSize::Body));
    const int symbol = m_options.symbol.empty()
                           ? 0
                           : static_cast<int>(symbolExtent(symbolSize::control)) + distance::iconToText;
    const bool canClear = m_options.clearing == Clearing::button;
    setTextMargins(textMargin + symbol, 0, canClear ? clearSide + distance::inside : textMargin, 0);
    if (canClear) {
        m_clear = PushButton::ofSymbol("xmark", tr("Clear"), ButtonKind::Borderless, this);
        m_clear->setObjectName(QStringLiteral("clear"));
        m_clear->setFocusPolicy(Qt::NoFocus);
        m_clear->setCursor(Qt::ArrowCursor);
        m_clear->resize(clearSide, clearSide);
        connect(m_clear, &PushButton::clicked, this, &TextField::clearAll);
        connect(this, &QLineEdit::textChanged, this, &TextField::placeClearButton);
    }
    connect(this, &QLineEdit::textEdited, this, [this](const QString& text) { m_typed.write(*this, text); });
    connect(&theme(), &Theme::changed, this, [this] { update(); });
    refresh();
    if (m_clear) {
        placeClearButton();
    }
}

void TextField::refresh() {
    const auto typing = isBeingTyped(*this) ? TypedText::Typing::goesOn : TypedText::Typing::isOver;
    if (const auto text = m_typed.toShow(typing)) {
        showText(*text, typing);
    }
}

void TextField::showText(const QString& text, TypedText::Typing typing) {
    const QString before = this->text();
    if (text == before) {
        return;
    }
    const int caret = cursorPosition();
    const int anchor = !hasSelectedText()          ? caret
                       : caret == selectionStart() ? selectionEnd()
                                                   : selectionStart();
    setText(text);
    if (typing == TypedText::Typing::isOver) {
        setCursorPosition(0); // so that a long text shows its beginning
        return;
    }
    const int newAnchor = movedCaret(before, text, anchor);
    const int newCaret = movedCaret(before, text, caret);
    if (newAnchor == newCaret) {
        setCursorPosition(newCaret);
    } else {
        setSelection(newAnchor, newCaret - newAnchor);
    }
}

void TextField::clearAll() {
    clear();
    m_typed.write(*this, {});
}

void TextField::placeClearButton() {
    m_clear->move(width() - clearSide - distance::inside, (height() - clearSide) / 2);
    m_clear->setVisible(!text().isEmpty());
}

QSize TextField::sizeHint() const {
    return {QLineEdit::sizeHint().width(), extent::control};
}

QSize TextField::minimumSizeHint() const {
    return {QLineEdit::minimumSizeHint().width(), extent::control};
}

bool TextField::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && isHistoryKey(*static_cast<QKeyEvent*>(event))) {
        event->ignore();
        return false;
    }
    return QLineEdit::event(event);
}

void TextField::keyPressEvent(QKeyEvent* event) {
    if (isHistoryKey(*event)) {
        event->ignore();
        return;
    }
    if (event->key() == Qt::Key_Escape && m_clear && !text().isEmpty()) {
        clearAll();
        return;
    }
    QLineEdit::keyPressEvent(event);
}

void TextField::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (!endsTyping(event->reason())) {
        return;
    }
    if (const auto text = m_typed.toShow(TypedText::Typing::isOver)) {
        showText(*text, TypedText::Typing::isOver);
    }
}

void TextField::contextMenuEvent(QContextMenuEvent* event) {
    openTextMenu(createStandardContextMenu(), event->globalPos());
}

void TextField::resizeEvent(QResizeEvent* event) {
    QLineEdit::resizeEvent(event);
    if (m_clear) {
        placeClearButton();
    }
}

void TextField::paintEvent(QPaintEvent* event) {
    const ControlState state = widgetState(*this);
    {
        QPainter painter(this);
        drawFieldBody(painter, rect(), state);
        const ThemeColors& colors = theme().colors();
        const double side = symbolExtent(symbolSize::control);
        if (!m_options.symbol.empty()) {
            drawSymbol(painter, {1.0 * distance::beside, 0, side, 1.0 * height()}, m_options.symbol,
                       symbolSize::control, state.enabled ? colors.textSecondary : colors.textTertiary);
        }
    }
    QLineEdit::paintEvent(event);
}

} // namespace quillon
