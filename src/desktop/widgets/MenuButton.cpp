#include "desktop/widgets/MenuButton.h"

#include "desktop/theme/Painting.h"
#include "desktop/theme/Symbols.h"
#include "desktop/theme/Theme.h"
#include "desktop/widgets/TitleDrawing.h"
#include "desktop/widgets/WidgetState.h"

#include <QActionGroup>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace quillon {

namespace {

constexpr int padding = distance::beside;

int chevronPart() {
    return distance::iconToText + static_cast<int>(std::ceil(symbolExtent(symbolSize::control)));
}

/// A menu takes an ampersand for a mark at the letter after it.
QString asMenuText(QString title) {
    return title.replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace

MenuButton::MenuButton(const QString& name, std::vector<Choice> choices, Binding<int> binding,
                       QWidget* parent)
    : QAbstractButton(parent) {
    setAccessibleName(name);
    setObjectName(name);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    connect(this, &QAbstractButton::pressed, this, [this] { openMenu(); });
    connect(&theme(), &Theme::changed, this, [this] { update(); });
    setChoices(std::move(choices), std::move(binding));
}

MenuButton* MenuButton::ofSymbol(std::string symbol, const QString& name, std::vector<Choice> choices,
                                 Binding<int> binding, QWidget* parent) {
    auto* button = new MenuButton(name, std::move(choices), std::move(binding), parent);
    button->m_ownSymbol = std::move(symbol);
    button->setToolTip(name);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    return button;
}

void MenuButton::setChoices(std::vector<Choice> choices, Binding<int> binding) {
    m_choices = std::move(choices);
    m_binding = std::move(binding);
    updateGeometry();
    refresh();
}

void MenuButton::setPrompt(const QString& prompt) {
    m_prompt = prompt;
    updateGeometry();
    update();
}

void MenuButton::refresh() {
    m_chosen = m_binding.get();
    setAccessibleDescription(chosen() ? chosen()->title : m_prompt);
    update();
}

const Choice* MenuButton::chosen() const {
    const bool isOne = m_chosen >= 0 && m_chosen < static_cast<int>(m_choices.size());
    return isOne ? &m_choices[static_cast<std::size_t>(m_chosen)] : nullptr;
}

void MenuButton::fill(QMenu& menu) {
    auto* group = new QActionGroup(&menu);
    for (int index = 0; index < static_cast<int>(m_choices.size()); ++index) {
        const Choice& choice = m_choices[static_cast<std::size_t>(index)];
        if (choice.startsGroup) {
            menu.addSeparator();
        }
        if (!choice.heading.isEmpty()) {
            menu.addSection(choice.heading);
        }
        QAction* entry = menu.addAction(asMenuText(choice.title));
        if (!choice.symbol.empty()) {
            entry->setIcon(symbolIcon(choice.symbol));
        }
        entry->setCheckable(chosen() != nullptr);
        entry->setChecked(index == m_chosen);
        group->addAction(entry);
        // Queued, since the write can be the end of the button and with it of the menu that is closing.
        connect(
            entry, &QAction::triggered, this,
            [this, index] {
                if (index != m_chosen) {
                    writeThrough(*this, m_binding, index);
                }
            },
            Qt::QueuedConnection);
    }
}

void MenuButton::openMenu() {
    auto* menu = new QMenu(this);
    menu->setObjectName(accessibleName());
    // A press of the button closes its menu; it must not open it again.
    menu->setAttribute(Qt::WA_NoMouseReplay);
    menu->setMinimumWidth(m_ownSymbol ? 0 : width());
    fill(*menu);
    connect(menu, &QMenu::aboutToHide, this, [this, menu] {
        setDown(false);
        menu->deleteLater();
    });
    setDown(true);
    menu->popup(mapToGlobal(QPoint(0, height() + distance::segments)));
    if (chosen()) {
        const QList<QAction*> entries = menu->actions();
        const auto checked = std::ranges::find_if(entries, &QAction::isChecked);
        menu->setActiveAction(checked == entries.end() ? nullptr : *checked);
    }
}

void MenuButton::keyPressEvent(QKeyEvent* event) {
    constexpr std::array opening = {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Down};
    if (std::ranges::find(opening, event->key()) != opening.end()) {
        openMenu();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

QSize MenuButton::sizeHint() const {
    if (m_ownSymbol) {
        return {extent::control, extent::control};
    }
    // As wide as the widest choice, so that a choice moves nothing.
    const QFont font = theme().font(TextSize::Body);
    int width = titleWidth(m_prompt, {}, font);
    for (const Choice& choice : m_choices) {
        width = std::max(width, titleWidth(choice.title, choice.symbol, font));
    }
    return {width + chevronPart() + 2 * padding, extent::control};
}

QSize MenuButton::minimumSizeHint() const {
    return {std::min(sizeHint().width(), 3 * extent::control), extent::control};
}

void MenuButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const ControlState state = widgetState(*this);
    const ButtonKind kind = m_ownSymbol ? ButtonKind::Borderless : ButtonKind::Bordered;
    drawButtonBody(painter, rect(), kind, state);
    const QColor color = buttonTextColor(kind, state);
    if (m_ownSymbol) {
        drawSymbol(painter, rect(), *m_ownSymbol, symbolSize::control, color);
        return;
    }
    const QRectF area = QRectF(rect()).adjusted(padding, 0, -padding, 0);
    const Choice* choice = chosen();
    drawTitle(painter, area.adjusted(0, 0, -chevronPart(), 0), choice ? choice->title : m_prompt,
              choice ? choice->symbol : std::string(), theme().font(TextSize::Body),
              choice ? color : theme().colors().textTertiary, Qt::AlignLeft);
    const double side = symbolExtent(symbolSize::control);
    drawSymbol(painter, {area.right() - side, area.top(), side, area.height()}, "chevron.up.chevron.down",
               symbolSize::control, state.enabled ? theme().colors().textSecondary : color);
}

} // namespace quillon
