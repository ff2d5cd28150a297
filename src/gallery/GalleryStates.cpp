#include "gallery/GalleryStates.h"

#include <utility>

namespace quillon {

GalleryRow rowOfStates(const QString& name, const MakeInState& make) {
    const std::vector<std::pair<QString, ControlState>> states = {
        {QStringLiteral("Normal"), {}},
        {QStringLiteral("Hover"), {.hovered = true}},
        {QStringLiteral("Pressed"), {.hovered = true, .pressed = true}},
        {QStringLiteral("Focused"), {.focused = true}},
        {QStringLiteral("Selected"), {.selected = true}},
        {QStringLiteral("Disabled"), {.enabled = false}},
    };
    GalleryRow row = {.name = name};
    for (const auto& [title, state] : states) {
        row.samples.push_back({title, [make, state](QWidget* parent) {
                                   return make(parent, state);
                               }});
    }
    return row;
}

} // namespace quillon
