#include "editor/PreviewStage.h"

#include "desktop/theme/Theme.h"
#include "editor/PreviewCaption.h"

#include <QPainter>
#include <QPainterPath>
#include <QResizeEvent>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace quillon {

namespace {

constexpr int captionInset = 12;    ///< from the pane's upper right corner, where the page fills it
constexpr int framePadding = 18;    ///< round caption and frame
constexpr int captionDistance = 10; ///< between caption and frame
constexpr double frameRadius = 8;
constexpr double strokeOpacity = 0.22;
constexpr double shadowOpacity = 0.12;
constexpr int shadowRadius = 14;
constexpr int shadowDrop = 5;

/// What lies behind the framed page: the pane's colour and the frame's shadow.
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
        painter.fillRect(rect(), palette().color(QPalette::Window));
        if (m_frame.isNull()) {
            return;
        }
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        // Rings of one faint colour add up to a shadow that fades outwards.
        painter.setBrush(QColor(0, 0, 0, static_cast<int>(std::lround(255 * shadowOpacity / shadowRadius))));
        for (int spread = 1; spread <= shadowRadius; ++spread) {
            const QRectF ring =
                QRectF(m_frame).translated(0, shadowDrop).adjusted(-spread, -spread, spread, spread);
            painter.drawRoundedRect(ring, frameRadius + spread, frameRadius + spread);
        }
    }

private:
    QRect m_frame;
};

/// What lies over the framed page: its rounded corners and its outline.
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
        inside.addRoundedRect(rect(), frameRadius, frameRadius);
        painter.fillPath(corners - inside, palette().color(QPalette::Window));
        painter.setPen(QPen(faded(theme().colors().textSecondary, strokeOpacity), 1));
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), frameRadius, frameRadius);
    }
};

} // namespace

struct PreviewStage::Parts {
    explicit Parts(QWidget& thePage) : page(thePage), outline(&backdrop), caption(&backdrop) {}

    QWidget& page;
    Backdrop backdrop;
    FrameOutline outline;
    PreviewCaption caption;
    std::optional<FrameSize> frame;
};

PreviewStage::PreviewStage(QWidget& page, QWidget* parent)
    : QScrollArea(parent), m_parts(std::make_unique<Parts>(page)) {
    setObjectName(QStringLiteral("previewStage"));
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    page.setParent(&m_parts->backdrop);
    page.lower();
    setWidget(&m_parts->backdrop);
    connect(&theme(), &Theme::changed, this, [this] {
        m_parts->backdrop.update();
        m_parts->outline.update();
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

void PreviewStage::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
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
        parts.caption.move(pane.width() - caption.width() - captionInset, captionInset);
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
