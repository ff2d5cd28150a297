#include "editor/EditorToolbar.h"

#include "desktop/theme/Theme.h"
#include "editor/toolbar/ToolbarPreviewControlStrip.h"

#include <QHBoxLayout>
#include <QPainter>

namespace quillon {

namespace {

constexpr int toolbarHeight = 52;

} // namespace

EditorToolbar::EditorToolbar(EditorWindowState& state, QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("toolbar"));
    setAccessibleName(tr("Toolbar"));
    setFixedHeight(toolbarHeight);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(distance::groups, 0, distance::groups, 0);
    row->addStretch(1);
    row->addWidget(new ToolbarPreviewControlStrip(state, this));
    row->addStretch(1);
    connect(&theme(), &Theme::changed, this, [this] { update(); });
}

void EditorToolbar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), theme().colors().window);
    painter.fillRect(QRect(0, height() - extent::line, width(), extent::line), theme().colors().separator);
}

} // namespace quillon
