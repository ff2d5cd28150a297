#include "editor/PreviewStage.h"

#include "desktop/theme/Painting.h"
#include "desktop/theme/Theme.h"
#include "editor/PreviewCaption.h"

#include <QApplication>
#include <QPainter>
#include <QPainterPath>
#include <QPixmapCache>
#include <QResizeEvent>
#include <QScrollBar>
#include <QWheelEvent>
#include <qdrawutil.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quillon {

namespace {

constexpr int framePadding = 18;    ///< round caption and frame
constexpr int captionDistance = 10; ///< between caption and frame
constexpr int shadowRadius = 14;
constexpr int shadowDrop = 5;

/// How far from the shadow's edge it is blurred, to both sides: beyond this there is less of it than can be
/// shown.
constexpr int shadowReach = shadowRadius * 3 / 2;

/// The shadow of the smallest rectangle whose middle is not blurred. That of any larger one has the same
/// edges and corners, which are too soft to tell the frame's rounding.
QPixmap makeShadow(const QColor& color) {
    constexpr int middle = 1;
    constexpr int side = 4 * shadowReach + middle;
    constexpr double deviation = shadowRadius / 2.0;
    const auto strength = [](int at) {
        const double inwards = std::min(at, side - 1 - at) + 0.5 - shadowReach;
        return std::erfc(-inwards / (deviation * std::numbers::sqrt2)) / 2;
    };
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            image.setPixelColor(x, y, faded(color, strength(x) * strength(y)));
        }
    }
    return QPixmap::fromImage(image);
}

/// Paints what lies behind a framed page: the pane's colour and the frame's shadow.
void paintBehind(QPainter& painter, const QRect& area, const QRect& frame) {
    painter.fillRect(area, theme().colors().window);
    static const QString key = QStringLiteral("quillonFrameShadow");
    QPixmap shadow;
    if (!QPixmapCache::find(key, &shadow)) {
        shadow = makeShadow(theme().colors().frameShadow);
        QPixmapCache::insert(key, shadow);
    }
    constexpr QMargins blurred(shadowReach, shadowReach, shadowReach, shadowReach);
    qDrawBorderPixmap(&painter, frame.translated(0, shadowDrop).marginsAdded(blurred), 2 * blurred, shadow);
}

class Backdrop : public QWidget {
public:
    using QWidget::QWidget;

    void setFrame(const QRect& frame) {
        m_frame = frame;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        if (m_frame.isNull()) {
            painter.fillRect(rect(), theme().colors().window);
        } else {
            paintBehind(painter, rect(), m_frame);
        }
    }

private:
    QRect m_frame;
};

/// What lies over the framed page: its outline, and outside of its rounded corners what is behind it.
class FrameOutline : public QWidget {
public:
    explicit FrameOutline(QWidget* parent) : QWidget(parent) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setAttribute(Qt::WA_NoSystemBackground);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        QPainterPath corners;
        corners.addRect(rect());
        QPainterPath inside;
        inside.addRoundedRect(rect(), radius::row, radius::row);
        painter.save();
        painter.setClipPath(corners - inside);
        paintBehind(painter, rect(), rect());
        painter.restore();
        strokeRounded(painter, rect(), radius::row, theme().colors().frameOutline, extent::line);
    }
};

/// Tells that the page has the keyboard.
class FocusRing : public QWidget {
public:
    explicit FocusRing(QWidget* parent) : QWidget(parent) {
        setObjectName(QStringLiteral("previewFocusRing"));
        setAttribute(Qt::WA_TransparentForMouseEvents);
        setAttribute(Qt::WA_NoSystemBackground);
        hide();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        drawFocusRing(painter, rect(), 0);
    }
};

} // namespace

struct PreviewStage::Parts {
    Parts(QWidget& thePage, QWidget* stage)
        : page(thePage), outline(&backdrop), caption(&backdrop), ring(stage) {}

    QWidget& page;
    Backdrop backdrop;
    FrameOutline outline;
    PreviewCaption caption;
    FocusRing ring;
    std::optional<FrameSize> frame;
};

PreviewStage::PreviewStage(QWidget& page, QWidget* parent)
    : QScrollArea(parent), m_parts(std::make_unique<Parts>(page, this)) {
    setObjectName(QStringLiteral("previewStage"));
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    page.setParent(&m_parts->backdrop);
    page.lower();
    setWidget(&m_parts->backdrop);
    connect(&theme(), &Theme::changed, this, [this] {
        m_parts->backdrop.update();
        m_parts->outline.update();
        m_parts->ring.update();
    });
}

PreviewStage::~PreviewStage() {
    // Both belong to somebody else.
    m_parts->page.setParent(nullptr);
    takeWidget();
}

void PreviewStage::setFrame(std::optional<FrameSize> frame) {
    m_parts->frame = frame;
    const auto policy = frame ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff;
    setHorizontalScrollBarPolicy(policy);
    setVerticalScrollBarPolicy(policy);
    arrange();
}

void PreviewStage::setCaption(const QString& text) {
    m_parts->caption.setText(text);
    arrange();
}

void PreviewStage::showKeyboard(bool isShown) {
    m_parts->ring.setVisible(isShown);
    m_parts->ring.raise();
}

void PreviewStage::turnWheel(const QPoint& turn) {
    QScrollBar* bar = turn.x() != 0 ? horizontalScrollBar() : verticalScrollBar();
    QWheelEvent event({}, {}, {}, turn, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(bar, &event);
}

void PreviewStage::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    m_parts->ring.setGeometry(rect());
    arrange();
}

/// What a pane shows of `content` beside the scroll bars that it needs.
QSize PreviewStage::roomFor(const QSize& content, const QSize& pane) const {
    const int across = verticalScrollBar()->sizeHint().width();
    const int down = horizontalScrollBar()->sizeHint().height();
    const bool scrollsDown = content.height() > pane.height();
    const bool scrollsAcross = content.width() > pane.width() - (scrollsDown ? across : 0);
    const bool isLower = scrollsAcross && content.height() > pane.height() - down;
    return pane - QSize(scrollsDown || isLower ? across : 0, scrollsAcross ? down : 0);
}

void PreviewStage::arrange() {
    Parts& parts = *m_parts;
    const QSize pane = maximumViewportSize();
    const QSize caption = parts.caption.size();
    parts.outline.setVisible(parts.frame.has_value());
    if (!parts.frame) {
        parts.backdrop.setFrame({});
        parts.backdrop.setFixedSize(pane);
        parts.page.setGeometry(QRect({0, 0}, pane));
        parts.caption.move(pane.width() - caption.width() - distance::groups, distance::groups);
    } else {
        const QSize size(static_cast<int>(std::lround(parts.frame->width)),
                         static_cast<int>(std::lround(shownFrameHeight(*parts.frame, pane.height()))));
        const int top = framePadding + caption.height() + captionDistance;
        const QSize content(std::max(size.width(), caption.width()) + 2 * framePadding,
                            top + size.height() + framePadding);
        const QSize whole = content.expandedTo(roomFor(content, pane));
        const QRect frame((whole.width() - size.width()) / 2, top, size.width(), size.height());
        parts.backdrop.setFixedSize(whole);
        parts.backdrop.setFrame(frame);
        parts.page.setGeometry(frame);
        parts.outline.setGeometry(frame);
        parts.caption.move((whole.width() - caption.width()) / 2, framePadding);
    }
    parts.outline.raise();
    parts.caption.raise();
}

} // namespace quillon
