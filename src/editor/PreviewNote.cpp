#include "editor/PreviewNote.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QTimer>
#include <QToolButton>

#include <chrono>

namespace quillon {

namespace {

using namespace std::chrono_literals;

constexpr auto readingTime = 8s;
constexpr int distance = 12; ///< points from the edges

} // namespace

PreviewNote::PreviewNote(QWidget* parent)
    : QFrame(parent), m_text(new QLabel(this)), m_action(new QToolButton(this)) {
    setObjectName(QStringLiteral("previewNote"));
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    m_text->setObjectName(QStringLiteral("previewNoteText"));
    m_text->setWordWrap(true);
    m_action->setObjectName(QStringLiteral("previewNoteAction"));
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_action);
    connect(m_action, &QToolButton::clicked, this, &PreviewNote::actionChosen);
    hide();
}

void PreviewNote::tell(const QString& text, const QString& action) {
    m_text->setText(text);
    m_text->setAccessibleName(text);
    m_action->setText(action);
    m_action->setAccessibleName(action);
    m_action->setVisible(!action.isEmpty());
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
    const int width = parentWidget()->width() - 2 * distance;
    const int height = hasHeightForWidth() ? heightForWidth(width) : sizeHint().height();
    setGeometry(distance, distance, width, height);
}

} // namespace quillon
