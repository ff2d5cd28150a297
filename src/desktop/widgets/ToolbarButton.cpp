#include "desktop/widgets/ToolbarButton.h"

#include "desktop/theme/Symbols.h"
#include "desktop/theme/Theme.h"
#include "desktop/widgets/WidgetState.h"

#include <QAccessibleWidget>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace quillon {

namespace {

constexpr int paddingWithChevron = distance::inside;
constexpr int paddingWithoutChevron = distance::segments;

/// Says of a button what it does: opens a menu, is one of several, or just acts.
class ToolbarButtonAccessible : public QAccessibleWidget {
public:
    explicit ToolbarButtonAccessible(ToolbarButton& button) : QAccessibleWidget(&button), m_button(button) {}

    QAccessible::Role role() const override {
        if (m_button.hasMenu()) {
            return QAccessible::ButtonMenu;
        }
        return m_button.isCheckable() ? QAccessible::RadioButton : QAccessible::Button;
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.hasPopup = m_button.hasMenu();
        state.checkable = m_button.isCheckable();
        state.checked = m_button.isChecked();
        state.selected = m_button.isChecked();
        state.pressed = m_button.isDown();
        return state;
    }
    QStringList actionNames() const override {
        if (!m_button.isEnabled()) {
            return {};
        }
        const bool isChoice = m_button.isCheckable();
        return {m_button.hasMenu() ? showMenuAction()
                : isChoice         ? toggleAction()
                                   : pressAction(),
                setFocusAction()};
    }
    void doAction(const QString& action) override {
        if (action == setFocusAction()) {
            QAccessibleWidget::doAction(action);
        } else if (actionNames().contains(action)) {
            m_button.click();
        }
    }

private:
    ToolbarButton& m_button;
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
    auto* button = qobject_cast<ToolbarButton*>(object);
    return button ? new ToolbarButtonAccessible(*button) : nullptr;
}

QFont titleFont(bool isChosen) {
    return theme().font(TextSize::Body, isChosen ? QFont::DemiBold : QFont::Normal);
}

} // namespace

ToolbarButton::ToolbarButton(QWidget* parent) : QAbstractButton(parent) {
    // Installing the same one again changes nothing.
    QAccessible::installFactory(makeAccessible);
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(&theme(), &Theme::changed, this, [this] { update(); });
}

QColor ToolbarButton::contentColor() const {
    return widgetState(*this).enabled ? theme().colors().text : theme().colors().textTertiary;
}

void ToolbarButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const ControlState state = widgetState(*this);
    if (state.selected) {
        fillRounded(painter, rect(), capsule, theme().colors().pillSelected);
    }
    drawQuietBody(painter, rect(), capsule, state);
    paintContent(painter);
}

void ToolbarButton::setMenu(QMenu* menu) {
    m_menu = menu;
    connect(this, &QAbstractButton::pressed, this, [this] { openMenu(); });
    connect(menu, &QMenu::aboutToHide, this, [this] { setDown(false); });
}

void ToolbarButton::openMenu() {
    m_menu->setAttribute(Qt::WA_NoMouseReplay);
    m_menu->popup(mapToGlobal(QPoint(0, height())));
    for (QAction* action : m_menu->actions()) {
        if (action->isChecked()) {
            m_menu->setActiveAction(action);
        }
    }
}

void ToolbarButton::keyPressEvent(QKeyEvent* event) {
    const bool opens = event->key() == Qt::Key_Down || event->key() == Qt::Key_Return ||
                       event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
    if (m_menu && opens) {
        openMenu();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

ToolbarModeButton::ToolbarModeButton(const QString& title, QWidget* parent) : ToolbarButton(parent) {
    setText(title);
    setAccessibleName(title);
    setCheckable(true);
}

QSize ToolbarModeButton::sizeHint() const {
    // As wide as when it is chosen, so that a choice moves nothing.
    return {QFontMetrics(titleFont(true)).horizontalAdvance(text()) + 2 * extent::pillPadding,
            extent::pillControl};
}

void ToolbarModeButton::paintContent(QPainter& painter) {
    painter.setPen(contentColor());
    painter.setFont(titleFont(widgetState(*this).selected));
    painter.drawText(rect(), Qt::AlignCenter, text());
}

ToolbarSymbolButton::ToolbarSymbolButton(std::string symbol, const QString& name, QSize size, QWidget* parent)
    : ToolbarButton(parent), m_symbol(std::move(symbol)), m_size(size) {
    setAccessibleName(name);
    setToolTip(name);
}

void ToolbarSymbolButton::paintContent(QPainter& painter) {
    drawSymbol(painter, rect(), m_symbol, symbolSize::control, contentColor(),
               widgetState(*this).selected ? SymbolWeight::Semibold : SymbolWeight::Regular);
}

ToolbarLooseControlLabel::ToolbarLooseControlLabel(Chevron chevron, QWidget* parent)
    : ToolbarButton(parent), m_chevron(chevron) {}

void ToolbarLooseControlLabel::setContent(const QString& title, std::string symbol) {
    setText(title);
    setAccessibleName(title);
    m_symbol = std::move(symbol);
    updateGeometry();
    update();
}

QSize ToolbarLooseControlLabel::sizeHint() const {
    const bool hasChevron = m_chevron == Chevron::shown;
    int width = static_cast<int>(symbolExtent(symbolSize::pill)) + distance::iconToText +
                QFontMetrics(titleFont(false)).horizontalAdvance(text());
    width += hasChevron ? distance::iconToText + static_cast<int>(symbolExtent(symbolSize::chevron)) : 0;
    width += 2 * (hasChevron ? paddingWithChevron : paddingWithoutChevron);
    return {std::max(width, extent::pillSymbol), extent::pillSymbol};
}

void ToolbarLooseControlLabel::paintContent(QPainter& painter) {
    const bool hasChevron = m_chevron == Chevron::shown;
    const double padding = hasChevron ? paddingWithChevron : paddingWithoutChevron;
    const double symbol = symbolExtent(symbolSize::pill);
    const double chevron = symbolExtent(symbolSize::chevron);
    const QRectF area(rect());
    drawSymbol(painter, {padding, 0, symbol, area.height()}, m_symbol, symbolSize::pill, contentColor(),
               SymbolWeight::Medium);
    painter.setPen(contentColor());
    painter.setFont(titleFont(false));
    const double textStart = padding + symbol + distance::iconToText;
    painter.drawText(area.adjusted(textStart, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft, text());
    if (hasChevron) {
        drawSymbol(painter, {area.width() - padding - chevron, 0, chevron, area.height()}, "chevron.down",
                   symbolSize::chevron, contentColor(), SymbolWeight::Semibold);
    }
}

} // namespace quillon
