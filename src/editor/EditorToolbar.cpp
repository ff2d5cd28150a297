#include "editor/EditorToolbar.h"

#include "desktop/theme/Theme.h"
#include "desktop/widgets/ToolbarButton.h"
#include "editor/ComponentAddMenu.h"
#include "editor/EditorWindowState.h"
#include "editor/commands/Keys.h"
#include "editor/toolbar/ToolbarPreviewControlStrip.h"

#include <QHBoxLayout>
#include <QPainter>

namespace quillon {

namespace {

constexpr QSize buttonSize(extent::toolbarButton, extent::control);

ToolbarSymbolButton* makeButton(const char* objectName, const char* symbol, const QString& name,
                                const QString& help, QWidget* parent) {
    auto* button = new ToolbarSymbolButton(symbol, name, buttonSize, parent);
    button->setObjectName(QLatin1String(objectName));
    button->setToolTip(help);
    return button;
}

} // namespace

EditorToolbar::EditorToolbar(EditorWindowState& state, const std::function<void(const ComponentRole&)>& onAdd,
                             QWidget* parent)
    : QWidget(parent), m_state(state),
      m_outline(makeButton("toggleOutline", "sidebar.leading", tr("Outline"),
                           keys::withKey(tr("Toggle the outline"), keys::showOutline), this)) {
    setObjectName(QStringLiteral("toolbar"));
    setAccessibleName(tr("Toolbar"));
    setFixedHeight(extent::toolbar);
    auto* add = makeButton("addMenu", "plus", tr("Add Component"), tr("Add a component"), this);
    auto* menu = new QMenu(add);
    fillComponentAddMenu(*menu, onAdd);
    add->setMenu(menu);

    auto* strip = new ToolbarPreviewControlStrip(state, this);
    // The keyboard goes in the order in which they are made.
    m_inspector = makeButton("toggleInspector", "sidebar.trailing", tr("Inspector"),
                             keys::withKey(tr("Toggle the inspector"), keys::showInspector), this);

    auto* left = new QHBoxLayout();
    left->setSpacing(distance::inside);
    left->addWidget(m_outline);
    left->addWidget(add);
    left->addStretch(1);
    auto* right = new QHBoxLayout();
    right->addStretch(1);
    right->addWidget(m_inspector);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(distance::groups, 0, distance::groups, 0);
    row->setSpacing(distance::groups);
    // Sides of one width keep the strip in the middle.
    row->addLayout(left, 1);
    row->addWidget(strip);
    row->addLayout(right, 1);

    connect(m_outline, &QAbstractButton::clicked, &state, &EditorWindowState::toggleOutline);
    connect(m_inspector, &QAbstractButton::clicked, &state, &EditorWindowState::toggleInspector);
    connect(&state, &EditorWindowState::changed, this, [this] { refresh(); });
    connect(&theme(), &Theme::changed, this, [this] { update(); });
    refresh();
}

void EditorToolbar::refresh() {
    const auto describe = [](ToolbarSymbolButton* button, bool isShown) {
        button->setAccessibleDescription(isShown ? tr("Shown") : tr("Hidden"));
    };
    describe(m_outline, m_state.sidebars().outline);
    describe(m_inspector, m_state.sidebars().inspector);
}

void EditorToolbar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), theme().colors().window);
    painter.fillRect(QRect(0, height() - extent::line, width(), extent::line), theme().colors().separator);
}

} // namespace quillon
