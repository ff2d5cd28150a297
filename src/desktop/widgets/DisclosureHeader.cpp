#include "desktop/widgets/DisclosureHeader.h"

#include "desktop/theme/Symbols.h"
#include "desktop/theme/Theme.h"
#include "desktop/widgets/WidgetState.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QPainter>

namespace quillon {

namespace {

/// The chevron points down where the group is open and to the title where it is closed.
constexpr double openAngle = 0;
constexpr double closedAngle = -90;

int chevronWidth() {
    return static_cast<int>(symbolExtent(symbolSize::chevron)) + 2 * distance::inside;
}

QFont titleFont() {
    return theme().font(TextSize::Body, QFont::DemiBold);
}

/// Tells those who hear the window whether the group is open, and lets them toggle it.
class AccessibleHeader : public QAccessibleWidget {
public:
    explicit AccessibleHeader(DisclosureHeader* header) : QAccessibleWidget(header, QAccessible::Button) {}

    QAccessible::State state() const override {
        QAccessible::State told = QAccessibleWidget::state();
        told.expandable = true;
        told.expanded = header().isOpen();
        told.collapsed = !told.expanded;
        return told;
    }
    QStringList actionNames() const override { return {toggleAction(), setFocusAction()}; }
    void doAction(const QString& name) override {
        if (name == toggleAction()) {
            header().click();
            return;
        }
        QAccessibleWidget::doAction(name);
    }

private:
    DisclosureHeader& header() const { return *static_cast<DisclosureHeader*>(widget()); }
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
    auto* header = qobject_cast<DisclosureHeader*>(object);
    return header ? new AccessibleHeader(header) : nullptr;
}

} // namespace

DisclosureHeader::DisclosureHeader(const QString& title, QWidget* parent)
    : QAbstractButton(parent), m_angle(closedAngle) {
    [[maybe_unused]] static const bool isInstalled = (QAccessible::installFactory(makeAccessible), true);
    setObjectName(QStringLiteral("disclosureHeader"));
    setText(title);
    setAccessibleName(title);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    m_turn.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_turn, &QVariantAnimation::valueChanged, this, [this](const QVariant& angle) {
        m_angle = angle.toDouble();
        update();
    });
    connect(&theme(), &Theme::changed, this, [this] { update(); });
    connect(this, &QAbstractButton::clicked, this, [this] {
        if (m_isOpenable) {
            Q_EMIT openRequested(!m_isOpen);
        }
    });
}

void DisclosureHeader::setOpen(bool isOpen) {
    if (isOpen == m_isOpen) {
        return;
    }
    m_isOpen = isOpen;
    turnTo(isOpen ? openAngle : closedAngle);
    QAccessible::State changed;
    changed.expanded = true;
    QAccessibleStateChangeEvent told(this, changed);
    QAccessible::updateAccessibility(&told);
}

void DisclosureHeader::turnTo(double angle) {
    m_turn.stop();
    const int time = isVisible() ? theme().duration(motion::usual) : 0;
    if (time == 0) {
        m_angle = angle;
        update();
        return;
    }
    m_turn.setStartValue(m_angle);
    m_turn.setEndValue(angle);
    m_turn.setDuration(time);
    m_turn.start();
}

void DisclosureHeader::setOpenable(bool isOpenable) {
    m_isOpenable = isOpenable;
    setFocusPolicy(isOpenable ? Qt::StrongFocus : Qt::NoFocus);
    update();
}

void DisclosureHeader::setLeading(QWidget* widget) {
    m_leading = widget;
    widget->setParent(this);
    widget->resize(widget->sizeHint());
    updateGeometry();
}

int DisclosureHeader::titleStart() const {
    return chevronWidth() + (m_leading ? m_leading->width() + distance::beside : distance::inside);
}

QSize DisclosureHeader::sizeHint() const {
    const int title = QFontMetrics(titleFont()).horizontalAdvance(text());
    return {titleStart() + title + distance::beside, extent::control};
}

QSize DisclosureHeader::minimumSizeHint() const {
    return {titleStart() + extent::control, extent::control};
}

void DisclosureHeader::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    ControlState state = widgetState(*this);
    const ThemeColors& colors = theme().colors();
    const bool isOpenable = state.enabled && m_isOpenable;
    state.hovered = state.hovered && m_isOpenable;
    state.pressed = state.pressed && m_isOpenable;
    drawQuietBody(painter, rect(), radius::field, state);
    painter.save();
    painter.translate(chevronWidth() / 2.0, height() / 2.0);
    painter.rotate(m_angle);
    const double side = symbolExtent(symbolSize::chevron);
    drawSymbol(painter, {-side / 2, -side / 2, side, side}, "chevron.down", symbolSize::chevron,
               isOpenable ? colors.textSecondary : faded(colors.textTertiary, 0.5), SymbolWeight::Semibold);
    painter.restore();
    painter.setFont(titleFont());
    painter.setPen(state.enabled ? colors.text : colors.textTertiary);
    const QRect line = rect().adjusted(titleStart(), 0, -distance::beside, 0);
    painter.drawText(line, Qt::AlignVCenter | Qt::AlignLeft,
                     painter.fontMetrics().elidedText(text(), Qt::ElideRight, line.width()));
}

void DisclosureHeader::resizeEvent(QResizeEvent* event) {
    QAbstractButton::resizeEvent(event);
    if (m_leading) {
        m_leading->move(chevronWidth(), (height() - m_leading->height()) / 2);
    }
}

void DisclosureHeader::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    if (key == Qt::Key_Return || key == Qt::Key_Enter) {
        click();
        return;
    }
    const bool asksToOpen = key == Qt::Key_Right;
    if ((asksToOpen || key == Qt::Key_Left) && m_isOpenable && event->modifiers() == Qt::NoModifier) {
        if (asksToOpen != m_isOpen) {
            Q_EMIT openRequested(asksToOpen);
        }
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

} // namespace quillon
