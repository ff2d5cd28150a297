#include "editor/outline/OutlineDelegate.h"

#include "desktop/DocumentText.h"
#include "desktop/theme/Painting.h"
#include "desktop/theme/Symbols.h"
#include "desktop/theme/Theme.h"
#include "document/outline/RoleTint.h"
#include "editor/outline/OutlineModel.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quillon {

namespace {

constexpr int rowHeight = 32;
constexpr int rowHeightWithDetails = 40;
constexpr int chevronSide = 16;
constexpr int levelIndent = 6; ///< of the marks; what stands behind them goes in by `depthIndent` more
constexpr int depthIndent = 8;
constexpr int iconWidth = 20;
constexpr int iconToText = 9;
constexpr double componentSymbol = 16;
constexpr double articleSymbol = 17;
constexpr double dropTintOpacity = 0.16;
constexpr int dropLine = 2;
constexpr int dropLineEnd = 8;  ///< from the row's right
constexpr double bounce = 0.22; ///< how much larger a symbol becomes on its way

QColor tint(std::string_view hex) {
    const QColor color(QString::fromUtf8(hex.data(), static_cast<qsizetype>(hex.size())));
    return color.isValid() ? color : theme().colors().accent;
}

QColor tintOf(const Component* component) {
    return tint(component ? roleTint(component->role) : articleTint);
}

/// Deeper rows go in no further, so that their names can still be read.
int shownDepth(int depth) {
    constexpr int deepest = 8;
    return std::min(depth, deepest);
}

int levelStart(int depth) {
    return distance::inside + chevronSide + (shownDepth(depth) + 1) * levelIndent;
}

void drawText(QPainter& painter, const QRectF& rect, const QString& text, TextSize size,
              const QColor& color) {
    const QFont font = theme().font(size);
    painter.setFont(font);
    painter.setPen(color);
    painter.drawText(rect, Qt::AlignLeft | Qt::AlignVCenter,
                     QFontMetricsF(font).elidedText(text, Qt::ElideRight, rect.width()));
}

/// Name and, where there is one, the secondary line below it, in the middle of `rect`.
void drawTexts(QPainter& painter, const QRectF& rect, const QString& name, const QString& secondary) {
    const ThemeColors& colors = theme().colors();
    const double first = QFontMetricsF(theme().font(TextSize::Body)).height();
    const double second = secondary.isNull() ? 0 : QFontMetricsF(theme().font(TextSize::Caption)).height();
    const double top = rect.top() + (rect.height() - first - second) / 2;
    drawText(painter, {rect.left(), top, rect.width(), first}, name, TextSize::Body, colors.text);
    if (!secondary.isNull()) {
        drawText(painter, {rect.left(), top + first, rect.width(), second}, secondary, TextSize::Caption,
                 colors.textSecondary);
    }
}

/// What stands behind a row that is pushed aside.
void drawDelete(QPainter& painter, const QRectF& rect) {
    const ThemeColors& colors = theme().colors();
    const QRectF body = rect.adjusted(0, 1, -distance::inside, -1);
    fillRounded(painter, body, radius::row, colors.danger);
    painter.save();
    painter.setClipRect(body);
    const double symbol = symbolExtent(symbolSize::control);
    const QRectF content(body.right() - RowSwipe::buttonWidth + distance::beside, body.top(),
                         RowSwipe::buttonWidth, body.height());
    drawSymbol(painter, {content.left(), content.top(), symbol, content.height()}, "trash",
               symbolSize::control, colors.onDanger);
    drawText(painter, content.adjusted(symbol + distance::inside, 0, 0, 0), QObject::tr("Delete"),
             TextSize::Label, colors.onDanger);
    painter.restore();
}

} // namespace

QColor roleColor(const ComponentRole& role) {
    return tint(roleTint(role));
}

OutlineDelegate::OutlineDelegate(const State& state, QObject* parent)
    : QStyledItemDelegate(parent), m_state(state) {
    m_effect.setStartValue(0.0);
    m_effect.setEndValue(1.0);
    m_effect.setEasingCurve(QEasingCurve::OutQuad);
}

void OutlineDelegate::play(const std::function<void()>& changed) {
    m_effect.stop();
    m_effect.disconnect();
    m_effect.setDuration(theme().duration(motion::spring));
    connect(&m_effect, &QVariantAnimation::valueChanged, this, changed);
    m_effect.start();
}

QRect OutlineDelegate::chevronRect(const QRect& row, int depth) {
    return {row.left() + distance::inside + (shownDepth(depth) + 1) * levelIndent,
            row.top() + (row.height() - chevronSide) / 2, chevronSide, chevronSide};
}

int OutlineDelegate::textStart(int depth) {
    return levelStart(depth) + std::max(shownDepth(depth), 0) * depthIndent + iconWidth + iconToText;
}

QSize OutlineDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const {
    return {0, m_state.showsDetails ? rowHeightWithDetails : rowHeight};
}

void OutlineDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
    const Component* component = OutlineModel::component(index);
    if (!component || m_state.swipe.row() != component->id) {
        paintRow(*painter, option, index);
        return;
    }
    const double offset = m_state.swipe.offset();
    painter->save();
    painter->setClipRect(option.rect);
    painter->translate(-offset, 0);
    paintRow(*painter, option, index);
    painter->restore();
    drawDelete(*painter, QRectF(option.rect).adjusted(option.rect.width() - offset, 0, 0, 0));
}

void OutlineDelegate::paintRow(QPainter& painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const {
    const ThemeColors& colors = theme().colors();
    const OutlineNode& node = OutlineModel::node(index);
    const Component* component = OutlineModel::component(index);
    const int depth = node.depth();
    const QRectF row(option.rect);
    const QRectF body = row.adjusted(distance::inside, 0, -distance::inside, 0);
    const bool isSelected = option.state & QStyle::State_Selected;
    const auto& intent = m_state.drag.activeDropIntent;
    const bool isTarget = component ? intent == ComponentDropIntent::appendChild(component->id)
                                    : intent == ComponentDropIntent::appendToRoot();
    if (isTarget) {
        fillRounded(painter, body, radius::row, faded(tintOf(component), dropTintOpacity));
    } else if (isSelected) {
        fillRounded(painter, body, radius::row, colors.selection);
    } else if ((option.state & QStyle::State_MouseOver) && !m_state.drag.activeDraggedID) {
        fillRounded(painter, body, radius::row, colors.hover);
    }
    if (isSelected && m_state.showsFocus) {
        drawFocusRing(painter, body, radius::row);
    }
    if (OutlineModel::isContainer(index)) {
        drawSymbol(painter, chevronRect(option.rect, depth),
                   option.state & QStyle::State_Open ? "chevron.down" : "chevron.right", symbolSize::chevron,
                   colors.textSecondary, SymbolWeight::Semibold);
    }
    const double text = row.left() + textStart(depth);
    paintIcon(painter, {text - iconToText - iconWidth, row.top(), iconWidth, row.height()}, index,
              isSelected);
    const auto* model = static_cast<const OutlineModel*>(index.model());
    const QString secondary = !component             ? model->title()
                              : m_state.showsDetails ? shownLine(component->summary())
                                                     : QString();
    drawTexts(painter, {text, row.top(), row.right() - distance::beside - text, row.height()},
              index.data(Qt::DisplayRole).toString(), secondary);
    if (component && intent && intent->isOf(component->id) && !isTarget) {
        const bool isBefore = intent->kind == ComponentDropIntent::Kind::insertBefore;
        painter.fillRect(QRectF(text, isBefore ? row.top() : row.bottom() - dropLine,
                                row.right() - dropLineEnd - text, dropLine),
                         tintOf(component));
    }
}

/// A symbol that becomes the filled one of the selection bounces; that of a byline is drawn from left to
/// right, as one signs.
void OutlineDelegate::paintIcon(QPainter& painter, const QRectF& frame, const QModelIndex& index,
                                bool isSelected) const {
    const Component* component = OutlineModel::component(index);
    const bool isActivated =
        isSelected && (component ? m_state.activated == component->id : m_state.isArticleActivated);
    ComponentRoleIcon icon{.role = component ? component->role : ComponentRole(), .isSelected = isSelected};
    if (isActivated && component) {
        icon = m_state.icon;
    }
    const std::string_view symbol = component    ? icon.systemImage()
                                    : isSelected ? std::string_view("newspaper.fill")
                                                 : std::string_view("newspaper");
    const double size = component ? componentSymbol : articleSymbol;
    const bool isPlaying = isActivated && m_effect.state() == QAbstractAnimation::Running;
    painter.save();
    if (isPlaying) {
        const double done = m_effect.currentValue().toDouble();
        if (component && icon.drawOnActive) {
            painter.setClipRect(frame.adjusted(0, 0, -frame.width() * (1 - done), 0));
        } else {
            const double scale = 1 + bounce * std::sin(std::numbers::pi * done);
            painter.translate(frame.center());
            painter.scale(scale, scale);
            painter.translate(-frame.center());
        }
    }
    drawSymbol(painter, frame, symbol, size, tintOf(component), SymbolWeight::Medium);
    painter.restore();
}

} // namespace quillon
