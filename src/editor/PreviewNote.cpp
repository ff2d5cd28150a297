#include "editor/PreviewNote.h"

#include "desktop/theme/Painting.h"
#include "desktop/theme/Theme.h"
#include "desktop/widgets/PushButton.h"
#include "desktop/widgets/TextLabel.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QTimer>

#include <algorithm>
#include <chrono>

namespace quillon {

namespace {

using namespace std::chrono_literals;

constexpr auto readingTime = 8s;
constexpr int widest = 480; ///< points

} // namespace

PreviewNote::PreviewNote(QWidget* parent)
    : QWidget(parent), m_text(new TextLabel({}, {.flow = TextFlow::wrapped}, this)),
      m_action(new PushButton({}, ButtonKind::Bordered, {}, this)) {
    setObjectName(QStringLiteral("previewNote"));
    m_text->setObjectName(QStringLiteral("previewNoteText"));
    m_action->setObjectName(QStringLiteral("previewNoteAction"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(distance::around, distance::groups, distance::around, distance::groups);
    layout->setSpacing(distance::groups);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_action);
    connect(m_action, &QAbstractButton::clicked, this, &PreviewNote::actionChosen);
    connect(&theme(), &Theme::changed, this, [this] { update(); });
    hide();
}

void PreviewNote::tell(const QString& text, const QString& action) {
    m_text->setPlainText(text);
    setAccessibleName(text);
    m_action->setText(action);
    m_action->setAccessibleName(action);
    m_action->setVisible(!action.isEmpty());
    m_action->updateGeometry();
    arrange();
    show();
    raise();
    const int told = ++m_told;
    if (action.isEmpty()) {
        QTimer::singleShot(readingTime, this, [this, told] {
            if (told == m_told) {
                hide();
            }
        });
    }
}

void PreviewNote::arrange() {
    layout()->activate();
    const QSize pane = parentWidget()->size();
    const int width = std::min({pane.width() - 2 * distance::groups, sizeHint().width(), widest});
    const int height = layout()->totalHeightForWidth(width);
    setGeometry((pane.width() - width) / 2, pane.height() - distance::groups - height, width, height);
}

void PreviewNote::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const ThemeColors& colors = theme().colors();
    const QRectF card = QRectF(rect()).adjusted(0, 0, 0, -extent::line);
    fillRounded(painter, card.translated(0, extent::line), radius::card, colors.shadow);
    fillRounded(painter, card, radius::card, colors.surface);
    strokeRounded(painter, card, radius::card, colors.separator, extent::line);
}

} // namespace quillon
