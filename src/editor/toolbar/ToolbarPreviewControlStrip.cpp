#include "editor/toolbar/ToolbarPreviewControlStrip.h"

#include "desktop/QtText.h"
#include "desktop/theme/Motion.h"
#include "desktop/theme/Symbols.h"
#include "desktop/theme/Theme.h"
#include "desktop/widgets/ToolbarButton.h"
#include "desktop/widgets/ToolbarControlPill.h"
#include "editor/EditorWindowState.h"
#include "editor/commands/Keys.h"
#include "preview/PreviewFrame.h"

#include <QActionGroup>
#include <QGraphicsOpacityEffect>
#include <QVariantAnimation>

#include <algorithm>
#include <cmath>
#include <vector>

namespace quillon {

struct ToolbarPreviewControlStrip::Parts {
    explicit Parts(EditorWindowState& theState) : state(theState) {}

    EditorWindowState& state;
    ToolbarControlPill* modePill = nullptr;
    std::vector<std::pair<PreviewMode, ToolbarModeButton*>> modes;
    ToolbarControlPill* devicePill = nullptr;
    ToolbarLooseControlLabel* device = nullptr;
    ToolbarLooseControlLabel* orientation = nullptr;
    ToolbarControlPill* appearancePill = nullptr;
    std::vector<std::pair<PreviewAppearance, ToolbarSymbolButton*>> appearances;
    QVariantAnimation transition; ///< of the page's pills: 0 without them, 1 with them

    void makeModePill(QWidget* parent);
    void makeDevicePill(QWidget* parent);
    void makeAppearancePill(QWidget* parent);
};

void ToolbarPreviewControlStrip::Parts::makeModePill(QWidget* parent) {
    auto* pill = new ToolbarControlPill(tr("View"), distance::segments, parent);
    modePill = pill;
    for (const PreviewMode mode : {PreviewMode::rendered, PreviewMode::json}) {
        auto* button = new ToolbarModeButton(qtText(title(mode)), pill);
        button->setObjectName(QStringLiteral("mode") + qtText(title(mode)));
        button->setToolTip(keys::withKey(qtText(title(mode)),
                                         mode == PreviewMode::rendered ? keys::showPreview : keys::showJSON));
        connect(button, &QAbstractButton::clicked, pill, [this, mode] { state.setMode(mode); });
        modes.emplace_back(mode, button);
        pill->addChoice(button);
    }
}

void ToolbarPreviewControlStrip::Parts::makeDevicePill(QWidget* parent) {
    devicePill = new ToolbarControlPill(tr("Device"), distance::iconToText, parent);
    device = new ToolbarLooseControlLabel(Chevron::shown, devicePill);
    device->setObjectName(QStringLiteral("deviceMenu"));
    device->setToolTip(tr("Preview on a device or use the current pane width"));
    auto* menu = new QMenu(device);
    auto* group = new QActionGroup(menu);
    for (const PreviewDevice each : allDevices()) {
        QAction* action = menu->addAction(symbolIcon(symbolName(each)), qtText(rawValue(each)));
        action->setCheckable(true);
        group->addAction(action);
        connect(action, &QAction::triggered, menu, [this, each] { state.setDevice(each); });
    }
    connect(menu, &QMenu::aboutToShow, menu, [this, menu] {
        for (QAction* action : menu->actions()) {
            action->setChecked(action->text() == qtText(rawValue(state.choice().device)));
        }
    });
    device->setMenu(menu);
    devicePill->add(device);

    orientation = new ToolbarLooseControlLabel(Chevron::hidden, devicePill);
    orientation->setObjectName(QStringLiteral("orientation"));
    orientation->setToolTip(keys::withKey(tr("Toggle preview orientation"), keys::rotate));
    connect(orientation, &QAbstractButton::clicked, devicePill, [this] { state.flipOrientation(); });
    devicePill->add(orientation);
}

void ToolbarPreviewControlStrip::Parts::makeAppearancePill(QWidget* parent) {
    appearancePill = new ToolbarControlPill(tr("Appearance"), distance::segments, parent);
    for (const PreviewAppearance each : allAppearances()) {
        auto* button = new ToolbarSymbolButton(std::string(symbolName(each)),
                                               tr("%1 appearance").arg(qtText(rawValue(each))),
                                               {extent::pillSymbol, extent::pillControl}, appearancePill);
        button->setObjectName(QStringLiteral("appearance") + qtText(rawValue(each)));
        connect(button, &QAbstractButton::clicked, appearancePill,
                [this, each] { state.setAppearance(each); });
        appearances.emplace_back(each, button);
        appearancePill->addChoice(button);
    }
}

ToolbarPreviewControlStrip::ToolbarPreviewControlStrip(EditorWindowState& state, QWidget* parent)
    : QWidget(parent), m_parts(std::make_unique<Parts>(state)) {
    setObjectName(QStringLiteral("previewControls"));
    setAccessibleName(tr("Preview controls"));
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    m_parts->makeModePill(this);
    m_parts->makeDevicePill(this);
    m_parts->makeAppearancePill(this);
    for (ToolbarControlPill* pill : {m_parts->devicePill, m_parts->appearancePill}) {
        auto* fade = new QGraphicsOpacityEffect(pill);
        fade->setEnabled(false);
        pill->setGraphicsEffect(fade);
    }
    m_parts->transition.setEasingCurve(springCurve());
    m_parts->transition.setStartValue(1.0);
    m_parts->transition.setEndValue(1.0);
    connect(&m_parts->transition, &QVariantAnimation::valueChanged, this, [this] { arrange(); });
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
    m_parts->device->setContent(qtText(rawValue(choice.device)), std::string(symbolName(choice.device)));
    m_parts->orientation->setContent(qtText(rawValue(choice.orientation)),
                                     std::string(symbolName(choice.orientation)));
    m_parts->orientation->setEnabled(supportsOrientation(choice.device));
    for (const auto& [appearance, button] : m_parts->appearances) {
        button->setChecked(appearance == choice.appearance);
    }
    showPageControls(isRendered);
    arrange();
}

void ToolbarPreviewControlStrip::showPageControls(bool areShown) {
    QVariantAnimation& transition = m_parts->transition;
    const double end = areShown ? 1 : 0;
    if (transition.endValue().toDouble() == end) {
        return;
    }
    const QVariant start = transition.currentValue();
    transition.stop();
    transition.setDuration(theme().duration(motion::spring));
    transition.setStartValue(start);
    transition.setEndValue(end);
    transition.start();
    // On their way out they can no longer be pressed.
    for (ToolbarControlPill* pill : {m_parts->devicePill, m_parts->appearancePill}) {
        pill->setAttribute(Qt::WA_TransparentForMouseEvents, !areShown);
    }
}

QSize ToolbarPreviewControlStrip::sizeHint() const {
    const Parts& parts = *m_parts;
    const double shown = parts.transition.currentValue().toDouble();
    const QSize mode = parts.modePill->sizeHint();
    const int others = parts.devicePill->sizeHint().width() + parts.appearancePill->sizeHint().width() +
                       2 * distance::groups;
    return {mode.width() + static_cast<int>(std::lround(shown * others)),
            std::max(mode.height(), parts.devicePill->sizeHint().height())};
}

/// The page's pills come out of the strip's right edge while it grows, and fade in.
void ToolbarPreviewControlStrip::arrange() {
    Parts& parts = *m_parts;
    const double shown = parts.transition.currentValue().toDouble();
    const int height = sizeHint().height();
    int left = 0;
    for (ToolbarControlPill* pill : {parts.modePill, parts.devicePill, parts.appearancePill}) {
        const QSize size = pill->sizeHint();
        const double away = pill == parts.modePill ? 0 : (1 - shown) * size.width();
        pill->setGeometry(left + static_cast<int>(std::lround(away)), (height - size.height()) / 2,
                          size.width(), size.height());
        left += size.width() + distance::groups;
        if (auto* fade = qobject_cast<QGraphicsOpacityEffect*>(pill->graphicsEffect())) {
            fade->setEnabled(shown < 1);
            fade->setOpacity(std::clamp(shown, 0.0, 1.0));
            pill->setVisible(shown > 0);
        }
    }
    updateGeometry();
}

} // namespace quillon
