#include "desktop/widgets/CheckBox.h"
#include "desktop/widgets/MenuButton.h"
#include "desktop/widgets/ProgressIndicator.h"
#include "desktop/widgets/PushButton.h"
#include "desktop/widgets/SegmentedControl.h"
#include "desktop/widgets/TabStrip.h"
#include "desktop/widgets/Toggle.h"
#include "desktop/widgets/ToolbarButton.h"
#include "desktop/widgets/ToolbarControlPill.h"
#include "desktop/widgets/WidgetState.h"
#include "gallery/GalleryStates.h"

#include <memory>
#include <optional>
#include <utility>

namespace quillon {

namespace {

/// A value that only its control knows, so that the samples can be tried out.
template <typename Value>
Binding<Value> heldBinding(Value value) {
    const auto held = std::make_shared<Value>(value);
    return {[held] { return *held; },
            [held](Value written) {
                *held = written;
            }};
}

QString text(const char* words) {
    return QString::fromUtf8(words);
}

/// The second segment shows the state; the first one is chosen unless the second is to be.
template <typename Row>
QWidget* standingSegments(Row* row, const ControlState& state) {
    pretendState(*row->segments()[1], state);
    row->setEnabled(state.enabled);
    return row;
}

template <typename Made>
QWidget* standing(Made* widget, const ControlState& state) {
    pretendState(*widget, state);
    return widget;
}

std::vector<Choice> alignments() {
    return {{text("Left"), "text.alignleft"},
            {text("Centre"), "text.aligncenter"},
            {text("Right"), "text.alignright"},
            {text("Justified"), "text.justify"}};
}

std::vector<Choice> modes() {
    return {{text("Automatic")}, {text("Fixed")}, {text("Off")}};
}

std::vector<Choice> tabs() {
    return {{text("Content"), "doc.text"}, {text("Style"), "paintbrush"}};
}

std::vector<Choice> roles() {
    return {{text("Default")},
            {text("Photo"), "photo", text("Pictures")},
            {text("Gallery"), "photo.on.rectangle"},
            {text("Map"), "map", {}, true}};
}

GalleryRow segments(const QString& name, const std::function<std::vector<Choice>()>& choices,
                    ChoiceLook look) {
    return rowOfStates(name, [=](QWidget* parent, const ControlState& state) {
        const Binding<int> chosen = heldBinding(state.selected ? 1 : 0);
        return standingSegments(new SegmentedControl(name, choices(), chosen, look, parent), state);
    });
}

GalleryRow buttons(const QString& name, ButtonKind kind, const std::string& symbol) {
    return rowOfStates(name, [=](QWidget* parent, const ControlState& state) {
        return standing(new PushButton(name, kind, symbol, parent), state);
    });
}

GalleryRow checkBoxes(const QString& name, std::optional<bool> value) {
    return rowOfStates(name, [=](QWidget* parent, const ControlState& state) {
        const std::optional<bool> held = state.selected ? true : value;
        return standing(new CheckBox(text("Show caption"), heldBinding(held), parent), state);
    });
}

/// Two buttons in a pill, of which the second shows the state.
GalleryRow pills() {
    return rowOfStates(text("Toolbar pill"), [](QWidget* parent, const ControlState& state) {
        auto* pill = new ToolbarControlPill(text("View"), distance::segments, parent);
        const QSize side(extent::pillSymbol, extent::pillSymbol);
        pill->add(new ToolbarModeButton(text("Preview"), pill));
        auto* symbol = new ToolbarSymbolButton("sun.max", text("Light"), side, pill);
        pill->add(symbol);
        pill->setEnabled(state.enabled);
        pretendState(*symbol, state);
        return pill;
    });
}

QWidget* runningProgress(QWidget* parent, std::optional<double> fraction, Cancelling cancelling) {
    auto* progress = new ProgressIndicator(text("Reading"), cancelling, parent);
    progress->setProgress(fraction);
    return progress;
}

GalleryRow progress() {
    const auto sample = [](const char* state, std::optional<double> fraction, Cancelling cancelling,
                           bool isEnabled) {
        return GalleryRow::Sample{text(state), [=](QWidget* parent) {
                                      QWidget* made = runningProgress(parent, fraction, cancelling);
                                      made->setEnabled(isEnabled);
                                      return made;
                                  }};
    };
    return {text("Progress"),
            {sample("Begun", 0.02, Cancelling::Absent, true), sample("Half", 0.5, Cancelling::Offered, true),
             sample("Unknown", std::nullopt, Cancelling::Absent, true),
             sample("Unknown, to cancel", std::nullopt, Cancelling::Offered, true),
             sample("Disabled", 0.7, Cancelling::Offered, false)}};
}

} // namespace

std::vector<GalleryRow> choiceRows() {
    return {
        segments(text("Segments"), modes, ChoiceLook::TitleAndSymbol),
        segments(text("Segments of symbols"), alignments, ChoiceLook::SymbolOnly),
        rowOfStates(text("Tabs"),
                    [](QWidget* parent, const ControlState& state) {
                        const Binding<int> chosen = heldBinding(state.selected ? 1 : 0);
                        return standingSegments(new TabStrip(text("Inspector"), tabs(), chosen, parent),
                                                state);
                    }),
        rowOfStates(text("Menu"),
                    [](QWidget* parent, const ControlState& state) {
                        return standing(new MenuButton(text("Role"), roles(), heldBinding(1), parent), state);
                    }),
        rowOfStates(text("Menu of a symbol"),
                    [](QWidget* parent, const ControlState& state) {
                        return standing(MenuButton::ofSymbol("ellipsis", text("More"), roles(),
                                                             heldBinding(noChoice), parent),
                                        state);
                    }),
        buttons(text("Bordered"), ButtonKind::Bordered, "plus"),
        buttons(text("Prominent"), ButtonKind::Prominent, {}),
        buttons(text("Borderless"), ButtonKind::Borderless, "folder"),
        buttons(text("Destructive"), ButtonKind::Destructive, "trash"),
        rowOfStates(text("Button of a symbol"),
                    [](QWidget* parent, const ControlState& state) {
                        return standing(
                            PushButton::ofSymbol("plus", text("Add"), ButtonKind::Borderless, parent), state);
                    }),
        rowOfStates(text("Switch"),
                    [](QWidget* parent, const ControlState& state) {
                        return standing(new Toggle(text("Looped"), heldBinding(state.selected), parent),
                                        state);
                    }),
        checkBoxes(text("Check box"), false),
        checkBoxes(text("Check box, mixed"), std::nullopt),
        pills(),
        progress(),
    };
}

} // namespace quillon
