#include "gallery/GalleryRow.h"

#include "desktop/widgets/TextBox.h"
#include "desktop/widgets/TextField.h"
#include "desktop/widgets/WidgetState.h"

#include <memory>
#include <string>

namespace quillon {

namespace {

constexpr int sampleWidth = 240;

struct Look {
    QString name;
    ControlState state = {};
};

const std::vector<Look> looks = {{"Usual"},
                                 {"Hover", {.hovered = true}},
                                 {"Focused", {.focused = true}},
                                 {"Disabled", {.enabled = false}}};

const std::string prose =
    "The ferry leaves at six, and whoever misses it has the island for a night. Bring a coat.";

/// Leads to a text that only the copies of the binding know.
Binding<std::string> bindingTo(const std::string& text) {
    const auto held = std::make_shared<std::string>(text);
    return {[held] { return *held; },
            [held](std::string value) {
                *held = std::move(value);
            }};
}

QWidget* looking(QWidget* widget, const QString& name, const ControlState& state) {
    widget->setAccessibleName(name);
    widget->setFixedWidth(sampleWidth);
    pretendState(*widget, state);
    return widget;
}

GalleryRow fieldRow(const QString& name, const std::string& text, const TextField::Options& options) {
    GalleryRow row = {name, {}};
    for (const Look& look : looks) {
        row.samples.push_back({look.name, [=](QWidget* parent) {
                                   return looking(new TextField(bindingTo(text), options, parent), name,
                                                  look.state);
                               }});
    }
    return row;
}

GalleryRow boxRow(const QString& name, const std::string& text) {
    GalleryRow row = {name, {}};
    for (const Look& look : looks) {
        row.samples.push_back(
            {look.name, [=](QWidget* parent) {
                 const TextBox::Options options = {
                     .prompt = "Tell it in a sentence or two", .leastLines = 2, .mostLines = 4};
                 return looking(new TextBox(bindingTo(text), options, parent), name, look.state);
             }});
    }
    return row;
}

} // namespace

std::vector<GalleryRow> fieldRows() {
    using Kind = TextField::Kind;
    return {fieldRow("Field, empty", "", {.prompt = "Title of the article"}),
            fieldRow("Field, filled", "An Island for a Night", {}),
            fieldRow("Field with a symbol and a clear button", "island",
                     {.symbol = "magnifyingglass", .clearing = TextField::Clearing::button}),
            fieldRow("Number field", "1024.5", {.prompt = "0", .kind = Kind::number}),
            boxRow("Box, empty", ""),
            boxRow("Box, filled", prose),
            boxRow("Box, more than it shows", prose + "\n\n" + prose + "\n\n" + prose)};
}

} // namespace quillon
