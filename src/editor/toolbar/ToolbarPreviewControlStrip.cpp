#include "editor/toolbar/ToolbarPreviewControlStrip.h"

#include "desktop/theme/Symbols.h"
#include "desktop/theme/Theme.h"
#include "editor/EditorWindowState.h"
#include "desktop/widgets/ToolbarButton.h"
#include "desktop/widgets/ToolbarControlPill.h"
#include "preview/PreviewFrame.h"

#include <QActionGroup>
#include <QHBoxLayout>

#include <array>
#include <vector>

namespace quillon {

namespace {

constexpr int appearanceWidth = 28;
constexpr int appearanceHeight = 25;
constexpr int choiceSpacing = 2;
constexpr int deviceSpacing = 5;

QString text(std::string_view value) {
    return QString::fromUtf8(value.data(), static_cast<qsizetype>(value.size()));
}

} // namespace

struct ToolbarPreviewControlStrip::Parts {
    explicit Parts(EditorWindowState& theState) : state(theState) {}

    EditorWindowState& state;
    std::vector<std::pair<PreviewMode, ToolbarModeButton*>> modes;
    ToolbarControlPill* devicePill = nullptr;
    ToolbarLooseControlLabel* device = nullptr;
    ToolbarLooseControlLabel* orientation = nullptr;
    ToolbarControlPill* appearancePill = nullptr;
    std::vector<std::pair<PreviewAppearance, ToolbarSymbolButton*>> appearances;

    ToolbarControlPill* makeModePill(QWidget* parent);
    void makeDevicePill(QWidget* parent);
    void makeAppearancePill(QWidget* parent);
};

ToolbarControlPill* ToolbarPreviewControlStrip::Parts::makeModePill(QWidget* parent) {
    auto* pill = new ToolbarControlPill(choiceSpacing, parent);
    for (const PreviewMode mode : {PreviewMode::rendered, PreviewMode::json}) {
        auto* button = new ToolbarModeButton(text(title(mode)), pill);
        button->setObjectName(QStringLiteral("mode") + text(title(mode)));
        connect(button, &QAbstractButton::clicked, pill, [this, mode] {
            state.setMode(mode);
            // The press on the chosen one has taken its mark away.
            Q_EMIT state.changed();
        });
        modes.emplace_back(mode, button);
        pill->add(button);
    }
    return pill;
}

void ToolbarPreviewControlStrip::Parts::makeDevicePill(QWidget* parent) {
    devicePill = new ToolbarControlPill(deviceSpacing, parent);
    device = new ToolbarLooseControlLabel(Chevron::shown, devicePill);
    device->setObjectName(QStringLiteral("deviceMenu"));
    device->setToolTip(tr("Preview on a device or use the current pane width"));
    auto* menu = new QMenu(device);
    auto* group = new QActionGroup(menu);
    for (const PreviewDevice each : allDevices()) {
        QAction* action = menu->addAction(symbolIcon(symbolName(each)), text(rawValue(each)));
        action->setCheckable(true);
        group->addAction(action);
        connect(action, &QAction::triggered, menu, [this, each] { state.setDevice(each); });
    }
    connect(menu, &QMenu::aboutToShow, menu, [this, menu] {
        for (QAction* action : menu->actions()) {
            action->setChecked(action->text() == text(rawValue(state.choice().device)));
        }
    });
    device->setMenu(menu);
    devicePill->add(device);

    orientation = new ToolbarLooseControlLabel(Chevron::hidden, devicePill);
    orientation->setObjectName(QStringLiteral("orientation"));
    orientation->setToolTip(tr("Toggle preview orientation"));
    connect(orientation, &QAbstractButton::clicked, devicePill, [this] { state.flipOrientation(); });
    devicePill->add(orientation);
}

void ToolbarPreviewControlStrip::Parts::makeAppearancePill(QWidget* parent) {
    appearancePill = new ToolbarControlPill(choiceSpacing, parent);
    for (const PreviewAppearance each : allAppearances()) {
        auto* button =
            new ToolbarSymbolButton(std::string(symbolName(each)), text(rawValue(each)) + tr(" appearance"),
                                    {appearanceWidth, appearanceHeight}, appearancePill);
        button->setObjectName(QStringLiteral("appearance") + text(rawValue(each)));
        button->setCheckable(true);
        connect(button, &QAbstractButton::clicked, appearancePill, [this, each] {
            state.setAppearance(each);
            Q_EMIT state.changed();
        });
        appearances.emplace_back(each, button);
        appearancePill->add(button);
    }
}

ToolbarPreviewControlStrip::ToolbarPreviewControlStrip(EditorWindowState& state, QWidget* parent)
    : QWidget(parent), m_parts(std::make_unique<Parts>(state)) {
    setObjectName(QStringLiteral("previewControls"));
    setAccessibleName(tr("Preview controls"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins({});
    row->setSpacing(distance::groups);
    row->addWidget(m_parts->makeModePill(this));
    m_parts->makeDevicePill(this);
    row->addWidget(m_parts->devicePill);
    m_parts->makeAppearancePill(this);
    row->addWidget(m_parts->appearancePill);
    connect(&state, &EditorWindowState::changed, this, [this] { refresh(); });
    refresh();
}

ToolbarPreviewControlStrip::~ToolbarPreviewControlStrip() = default;

void ToolbarPreviewControlStrip::refresh() {
    const EditorWindowState& state = m_parts->state;
    const PreviewChoice& choice = state.choice();
    for (const auto& [mode, button] : m_parts->modes) {
        button->setChecked(mode == state.mode());
    }
    const bool isRendered = state.mode() == PreviewMode::rendered;
    m_parts->devicePill->setVisible(isRendered);
    m_parts->appearancePill->setVisible(isRendered);
    m_parts->device->setContent(text(rawValue(choice.device)), std::string(symbolName(choice.device)));
    m_parts->orientation->setContent(text(rawValue(choice.orientation)),
                                     std::string(symbolName(choice.orientation)));
    m_parts->orientation->setEnabled(supportsOrientation(choice.device));
    for (const auto& [appearance, button] : m_parts->appearances) {
        button->setChecked(appearance == choice.appearance);
    }
}

} // namespace quillon
