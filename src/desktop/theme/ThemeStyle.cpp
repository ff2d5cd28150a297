#include "desktop/theme/ThemeStyle.h"

#include "desktop/theme/Painting.h"
#include "desktop/theme/Symbols.h"
#include "desktop/theme/Theme.h"

#include <QAbstractButton>
#include <QMenu>
#include <QPainter>
#include <QStyleOption>

#include <algorithm>

namespace quillon {

namespace {

ControlState stateOf(const QStyleOption& option) {
    const auto has = [&option](QStyle::StateFlag flag) {
        return option.state.testFlag(flag);
    };
    return {has(QStyle::State_Enabled), has(QStyle::State_MouseOver), has(QStyle::State_Sunken),
            has(QStyle::State_HasFocus), has(QStyle::State_On)};
}

/// The knob of a scroll bar; there is no more to it.
void drawScrollBar(QPainter& painter, const QStyleOptionSlider& option, const QRect& knob) {
    if (option.minimum >= option.maximum) {
        return;
    }
    constexpr int slim = 2;
    const ControlState state = stateOf(option);
    const ThemeColors& colors = theme().colors();
    const double strength = state.pressed ? 0.9 : state.hovered ? 0.7 : 0.45;
    const QRect inner = knob.adjusted(slim, slim, -slim, -slim);
    fillRounded(painter, inner, capsule, faded(colors.textTertiary, strength));
}

void drawMenuItem(QPainter& painter, const QStyleOptionMenuItem& item) {
    const ThemeColors& colors = theme().colors();
    const QRect row = item.rect.adjusted(distance::inside, 0, -distance::inside, 0);
    const bool isEnabled = item.state.testFlag(QStyle::State_Enabled);
    const bool isChosen = isEnabled && item.state.testFlag(QStyle::State_Selected);
    if (isChosen) {
        fillRounded(painter, row, radius::field, colors.accent);
    }
    const QColor color = isChosen ? colors.onAccent : isEnabled ? colors.text : colors.textTertiary;
    const int mark = static_cast<int>(symbolExtent(symbolSize::control));
    QRect rest = row.adjusted(distance::beside, 0, -distance::beside, 0);
    if (item.menuHasCheckableItems) {
        if (item.checked) {
            drawSymbol(painter, QRect(rest.left(), rest.top(), mark, rest.height()), "checkmark",
                       symbolSize::control, color);
        }
        rest.adjust(mark + distance::inside, 0, 0, 0);
    }
    if (item.maxIconWidth > 0) {
        if (!item.icon.isNull()) {
            const QIcon::Mode mode = isChosen ? QIcon::Selected : isEnabled ? QIcon::Normal : QIcon::Disabled;
            item.icon.paint(&painter, QRect(rest.left(), rest.center().y() - mark / 2, mark, mark),
                            Qt::AlignCenter, mode);
        }
        rest.adjust(mark + distance::beside, 0, 0, 0);
    }
    if (item.menuItemType == QStyleOptionMenuItem::SubMenu) {
        drawSymbol(painter, QRect(rest.right() - mark, rest.top(), mark, rest.height()), "chevron.right",
                   symbolSize::chevron, color);
    }
    const qsizetype tab = item.text.indexOf(QLatin1Char('\t'));
    painter.setFont(item.font);
    painter.setPen(color);
    painter.drawText(rest, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextSingleLine | Qt::TextShowMnemonic,
                     item.text.left(tab));
    if (tab >= 0) {
        painter.setPen(isChosen ? color : colors.textSecondary);
        painter.drawText(rest, Qt::AlignVCenter | Qt::AlignRight | Qt::TextSingleLine,
                         item.text.mid(tab + 1));
    }
}

/// An entry of the menu bar. The keyboard shows on it as long as no menu is open.
void drawMenuBarItem(QPainter& painter, const QStyleOptionMenuItem& item, const QWidget* bar) {
    const ThemeColors& colors = theme().colors();
    painter.fillRect(item.rect, colors.window);
    const ControlState state = stateOf(item);
    const QRect body = item.rect.adjusted(0, distance::segments, 0, -distance::segments);
    if (state.enabled && state.pressed) {
        fillRounded(painter, body, radius::field, colors.selection);
    } else if (item.state.testFlag(QStyle::State_Selected)) {
        drawQuietBody(painter, body, radius::field,
                      {.enabled = state.enabled, .hovered = true, .focused = bar && bar->hasFocus()});
    }
    painter.setFont(item.font);
    painter.setPen(state.enabled ? colors.text : colors.textTertiary);
    painter.drawText(item.rect, Qt::AlignCenter | Qt::TextSingleLine | Qt::TextHideMnemonic, item.text);
}

/// Whether no entry has a letter of its own to be reached by; such a menu is searched by typing.
bool isWithoutLetters(const QMenu* menu) {
    return menu && std::ranges::none_of(menu->actions(), [](const QAction* entry) {
               return !QKeySequence::mnemonic(entry->text()).isEmpty();
           });
}

} // namespace

ThemeStyle::ThemeStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void ThemeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
    const ThemeColors& colors = theme().colors();
    switch (element) {
    case PE_PanelLineEdit:
    case PE_FrameLineEdit:
        if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
            !frame || frame->lineWidth > 0) {
            drawFieldBody(*painter, option->rect, stateOf(*option));
        }
        return;
    case PE_PanelButtonCommand: {
        const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
        const bool isDefault = button && button->features.testFlag(QStyleOptionButton::DefaultButton);
        drawButtonBody(*painter, option->rect, isDefault ? ButtonKind::Prominent : ButtonKind::Bordered,
                       stateOf(*option));
        return;
    }
    case PE_IndicatorCheckBox:
        drawCheckBox(*painter, option->rect, stateOf(*option), option->state.testFlag(State_NoChange));
        return;
    case PE_FrameFocusRect:
        // Buttons and check boxes have their own.
        if (!qobject_cast<const QAbstractButton*>(widget)) {
            drawFocusRing(*painter, option->rect, radius::field);
        }
        return;
    case PE_PanelScrollAreaCorner:
        painter->fillRect(option->rect, option->palette.window());
        return;
    case PE_PanelMenu:
        painter->fillRect(option->rect, colors.surface);
        return;
    case PE_PanelMenuBar:
        return;
    case PE_PanelTipLabel:
        painter->fillRect(option->rect, colors.surface);
        strokeRounded(*painter, option->rect, 0, colors.separator, extent::line);
        return;
    case PE_FrameMenu:
        strokeRounded(*painter, option->rect, 0, colors.separator, extent::line);
        return;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void ThemeStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
    if (element == CE_MenuItem) {
        const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        if (item && item->menuItemType != QStyleOptionMenuItem::Separator) {
            drawMenuItem(*painter, *item);
            return;
        }
        if (item && item->text.isEmpty()) {
            const int middle = item->rect.center().y();
            painter->fillRect(item->rect.left() + distance::groups, middle,
                              item->rect.width() - 2 * distance::groups, extent::line,
                              theme().colors().separator);
            return;
        }
        if (item) {
            // The title of a group of entries.
            painter->setFont(theme().font(TextSize::Caption, QFont::DemiBold));
            painter->setPen(theme().colors().textSecondary);
            painter->drawText(item->rect.adjusted(distance::groups, 0, -distance::groups, 0),
                              Qt::AlignVCenter | Qt::AlignLeft, item->text);
            return;
        }
    }
    if (element == CE_MenuBarEmptyArea) {
        painter->fillRect(option->rect, theme().colors().window);
        return;
    }
    if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        item && element == CE_MenuBarItem) {
        drawMenuBarItem(*painter, *item, widget);
        return;
    }
    if (element == CE_PushButtonLabel) {
        if (const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option)) {
            QStyleOptionButton colored = *button;
            const bool isDefault = button->features.testFlag(QStyleOptionButton::DefaultButton);
            colored.palette.setColor(
                QPalette::ButtonText,
                buttonTextColor(isDefault ? ButtonKind::Prominent : ButtonKind::Bordered, stateOf(*option)));
            QProxyStyle::drawControl(element, &colored, painter, widget);
            return;
        }
    }
    QProxyStyle::drawControl(element, option, painter, widget);
}

void ThemeStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
    if (const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
        bar && control == CC_ScrollBar) {
        drawScrollBar(*painter, *bar, subControlRect(control, option, SC_ScrollBarSlider, widget));
        return;
    }
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

QRect ThemeStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                 const QWidget* widget) const {
    const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
    if (control != CC_ScrollBar || !bar) {
        return QProxyStyle::subControlRect(control, option, part, widget);
    }
    const bool isAcross = bar->orientation == Qt::Horizontal;
    const int length = isAcross ? bar->rect.width() : bar->rect.height();
    const double range = static_cast<double>(bar->maximum) - bar->minimum + bar->pageStep;
    constexpr int smallestKnob = 28;
    const int knob = std::clamp(static_cast<int>(length * bar->pageStep / std::max(1.0, range)),
                                std::min(smallestKnob, length), length);
    const int begin = sliderPositionFromValue(bar->minimum, bar->maximum, bar->sliderPosition, length - knob,
                                              bar->upsideDown);
    const auto along = [&](int from, int size) {
        return isAcross ? QRect(bar->rect.left() + from, bar->rect.top(), size, bar->rect.height())
                        : QRect(bar->rect.left(), bar->rect.top() + from, bar->rect.width(), size);
    };
    switch (part) {
    case SC_ScrollBarSlider:
        return along(begin, knob);
    case SC_ScrollBarGroove:
        return along(0, length);
    case SC_ScrollBarSubPage:
        return along(0, begin);
    case SC_ScrollBarAddPage:
        return along(begin + knob, length - begin - knob);
    default:
        return {};
    }
}

QSize ThemeStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                   const QWidget* widget) const {
    QSize made = QProxyStyle::sizeFromContents(type, option, size, widget);
    if (type == CT_MenuBarItem) {
        made.setWidth(size.width() + 2 * distance::beside);
    }
    if (type == CT_PushButton || type == CT_LineEdit) {
        made.setHeight(std::max(made.height(), extent::control));
    }
    if (const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
        item && type == CT_MenuItem && item->menuItemType != QStyleOptionMenuItem::Separator) {
        const int mark = static_cast<int>(symbolExtent(symbolSize::control));
        const int marks = (item->menuHasCheckableItems ? mark + distance::inside : 0) +
                          (item->maxIconWidth > 0 ? mark + distance::beside : 0) +
                          (item->menuItemType == QStyleOptionMenuItem::SubMenu ? mark : 0);
        constexpr int sides = 2 * (distance::inside + distance::beside);
        const int shortcut =
            item->text.contains(QLatin1Char('\t')) ? item->reservedShortcutWidth + distance::around : 0;
        made = QSize(size.width() + marks + sides + shortcut, extent::control);
    }
    return made;
}

QIcon ThemeStyle::standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const {
    return icon == SP_LineEditClearButton ? symbolIcon("xmark")
                                          : QProxyStyle::standardIcon(icon, option, widget);
}

int ThemeStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
    switch (metric) {
    case PM_ScrollBarExtent:
        return extent::scrollBar;
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
        return extent::checkMark;
    case PM_LayoutLeftMargin:
    case PM_LayoutRightMargin:
    case PM_LayoutTopMargin:
    case PM_LayoutBottomMargin:
        return distance::around;
    case PM_LayoutHorizontalSpacing:
    case PM_LayoutVerticalSpacing:
    case PM_CheckBoxLabelSpacing:
        return distance::beside;
    case PM_SmallIconSize:
        return static_cast<int>(symbolExtent(symbolSize::control));
    case PM_MenuBarItemSpacing:
        return 0;
    case PM_MenuBarHMargin:
        return distance::inside;
    case PM_MenuVMargin:
        return distance::inside;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
        return 0;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int ThemeStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* result) const {
    switch (hint) {
    case SH_Widget_Animation_Duration:
        return theme().duration(motion::usual);
    case SH_ScrollBar_LeftClickAbsolutePosition:
        return 0;
    case SH_MenuBar_AltKeyNavigation:
        return 1;
    case SH_UnderlineShortcut:
        return 0;
    case SH_Menu_KeyboardSearch:
        return isWithoutLetters(qobject_cast<const QMenu*>(widget)) ? 1 : 0;
    default:
        return QProxyStyle::styleHint(hint, option, widget, result);
    }
}

} // namespace quillon
