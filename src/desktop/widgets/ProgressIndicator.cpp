#include "desktop/widgets/ProgressIndicator.h"

#include "desktop/theme/Painting.h"
#include "desktop/theme/Theme.h"
#include "desktop/widgets/PushButton.h"
#include "desktop/widgets/WidgetState.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace quillon {

namespace {

constexpr int spokes = 8;
constexpr int shortestBar = 96;

} // namespace

ProgressIndicator::ProgressIndicator(const QString& name, Cancelling cancelling, QWidget* parent)
    : QWidget(parent) {
    setAccessibleName(name);
    setObjectName(name);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    if (cancelling == Cancelling::Offered) {
        m_cancel = PushButton::ofSymbol("xmark", tr("Cancel"), ButtonKind::Borderless, this);
        m_cancel->hide();
        connect(m_cancel, &QAbstractButton::clicked, this, &ProgressIndicator::cancelled);
    }
    m_delay.setSingleShot(true);
    m_delay.setInterval(motion::progressDelay);
    connect(&m_delay, &QTimer::timeout, this, [this] { appear(); });
    m_turn.setStartValue(0);
    m_turn.setEndValue(spokes);
    m_turn.setDuration(motion::spinnerTurn);
    m_turn.setLoopCount(-1);
    connect(&m_turn, &QVariantAnimation::valueChanged, this, [this] { update(); });
    connect(&theme(), &Theme::changed, this, [this] { spinAsNeeded(); });
}

void ProgressIndicator::start() {
    setProgress(std::nullopt);
}

void ProgressIndicator::setProgress(std::optional<double> fraction) {
    m_fraction = fraction;
    if (!m_isShowing && !m_delay.isActive()) {
        m_delay.start();
    }
    setAccessibleDescription(fraction ? tr("%1 %").arg(std::lround(*fraction * 100)) : QString());
    spinAsNeeded();
}

void ProgressIndicator::finish() {
    m_delay.stop();
    m_isShowing = false;
    m_fraction.reset();
    if (m_cancel) {
        m_cancel->hide();
    }
    spinAsNeeded();
}

void ProgressIndicator::appear() {
    m_isShowing = true;
    if (m_cancel) {
        m_cancel->show();
    }
    spinAsNeeded();
}

void ProgressIndicator::spinAsNeeded() {
    const bool spins = m_isShowing && !m_fraction && theme().duration(motion::spinnerTurn) > 0;
    if (!spins) {
        m_turn.stop();
    } else if (m_turn.state() != QAbstractAnimation::Running) {
        m_turn.start();
    }
    update();
}

QSize ProgressIndicator::sizeHint() const {
    return {shortestBar + (m_cancel ? distance::inside + extent::control : 0), extent::control};
}

void ProgressIndicator::resizeEvent(QResizeEvent*) {
    if (m_cancel) {
        m_cancel->setGeometry(width() - extent::control, 0, extent::control, height());
    }
}

QRectF ProgressIndicator::signArea() const {
    return QRectF(rect()).adjusted(0, 0, m_cancel ? -extent::control - distance::inside : 0, 0);
}

void ProgressIndicator::drawSpinner(QPainter& painter, const QRectF& area) const {
    const QColor color =
        widgetState(*this).enabled ? theme().colors().textSecondary : theme().colors().textTertiary;
    // Standing still, it is a wheel of spokes with the first one strongest.
    const int head = m_turn.state() == QAbstractAnimation::Running ? m_turn.currentValue().toInt() : 0;
    const double reach = extent::spinner / 2.0;
    const QRectF spoke(-1, -reach + 1, 2, reach * 0.5);
    for (int at = 0; at < spokes; ++at) {
        const int behind = (head - at + spokes) % spokes;
        painter.save();
        painter.translate(area.center());
        painter.rotate(360.0 * at / spokes);
        fillRounded(painter, spoke, capsule, faded(color, 1 - 0.8 * behind / (spokes - 1)));
        painter.restore();
    }
}

void ProgressIndicator::paintEvent(QPaintEvent*) {
    if (!m_isShowing) {
        return;
    }
    QPainter painter(this);
    const QRectF area = signArea();
    if (!m_fraction) {
        const double start = m_cancel ? area.right() - extent::spinner : area.left();
        drawSpinner(painter, {start, area.top(), extent::spinner, area.height()});
        return;
    }
    const ThemeColors& colors = theme().colors();
    QRectF bar(area.left(), area.center().y() - extent::progressBar / 2.0, area.width(), extent::progressBar);
    fillRounded(painter, bar, capsule, colors.track);
    bar.setWidth(std::clamp(*m_fraction, 0.0, 1.0) * bar.width());
    if (bar.width() > 0) {
        bar.setWidth(std::max<double>(bar.width(), extent::progressBar));
        fillRounded(painter, bar, capsule, widgetState(*this).enabled ? colors.accent : colors.textTertiary);
    }
}

} // namespace quillon
