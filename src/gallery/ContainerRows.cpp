#include "gallery/GalleryRow.h"

#include "desktop/widgets/CheckBox.h"
#include "desktop/widgets/DisclosureGroup.h"
#include "desktop/widgets/EmptyState.h"
#include "desktop/widgets/Header.h"
#include "desktop/widgets/PushButton.h"
#include "desktop/widgets/Row.h"
#include "desktop/widgets/Section.h"
#include "desktop/widgets/Separator.h"
#include "desktop/widgets/TextBox.h"
#include "desktop/widgets/TextField.h"
#include "desktop/widgets/WidgetState.h"

#include <QAbstractButton>

#include <memory>
#include <string>

namespace quillon {

namespace {

constexpr int groupWidth = 200;
constexpr int sectionWidth = 420;
constexpr int lineLength = 60;

QWidget* ofWidth(int width, QWidget* widget) {
    widget->setFixedWidth(width);
    return widget;
}

template <typename Value>
Binding<Value> bindingTo(Value value) {
    const auto held = std::make_shared<Value>(std::move(value));
    return {[held] { return *held; },
            [held](Value next) {
                *held = std::move(next);
            }};
}

QWidget* makeSection(QWidget* parent, LabelPlace place) {
    auto* section = new Section("Layout", parent);
    auto* width = new TextField(bindingTo<std::string>("320"), {.kind = TextField::Kind::number}, section);
    auto* row = new Row("Width", width, section, place);
    row->setTrailing(PushButton::ofSymbol("xmark", "Remove width"));
    section->add(row);
    section->add(new Row("Accessibility caption of the picture",
                         new TextField(bindingTo<std::string>(""), {.prompt = "Caption"}), section, place));
    section->addSeparator();
    section->add(new Row("Description", new TextBox(bindingTo<std::string>("Two lines\nof text"), section),
                         section, place));
    section->add(new Row("Visible", new CheckBox("In compact width", bindingTo(true)), section, place));
    return ofWidth(sectionWidth, section);
}

GalleryRow::Sample groupSample(const QString& name, const ControlState& state, std::optional<bool> isOn,
                               bool isOpen) {
    return {name, [=](QWidget* parent) -> QWidget* {
                const auto make = [](QWidget* within) -> QWidget* {
                    return new Row("Margin", new TextField(bindingTo<std::string>("12")), within,
                                   LabelPlace::above);
                };
                auto* group = isOn ? new DisclosureGroup("Advanced", bindingTo(*isOn), make, parent)
                                   : new DisclosureGroup("Advanced", make, parent);
                group->setOpen(isOpen);
                pretendState(*group->findChild<QAbstractButton*>("disclosureHeader"), state);
                return ofWidth(groupWidth, group);
            }};
}

QWidget* makeLine(Qt::Orientation orientation, QWidget* parent) {
    auto* line = new Separator(orientation, parent);
    line->setMinimumSize(orientation == Qt::Horizontal ? QSize(lineLength, 0) : QSize(0, lineLength));
    return line;
}

} // namespace

std::vector<GalleryRow> containerRows() {
    const EmptyState::Content nothing = {.symbol = "square.dashed", .title = "No Component Selected"};
    const EmptyState::Content fillable = {.symbol = "paintbrush",
                                          .title = "No Text Styles",
                                          .description =
                                              "Styles that several components share stand here, and "
                                              "change in all of them at once.",
                                          .action = EmptyState::Action{"Add Style", [] {
                                                                       }}};
    return {{"Group",
             {groupSample("Closed", {}, {}, false), groupSample("Hover", {.hovered = true}, {}, false),
              groupSample("Pressed", {.hovered = true, .pressed = true}, {}, false),
              groupSample("Focused, open", {.focused = true}, {}, true),
              groupSample("Disabled", {.enabled = false}, {}, false)}},
            {"Group with a check box",
             {groupSample("Off", {}, false, false), groupSample("On, closed", {}, true, false),
              groupSample("On, open", {}, true, true)}},
            {"Section",
             {{"Labels beside",
               [](QWidget* parent) {
                   return makeSection(parent, LabelPlace::beside);
               }},
              {"Labels above",
               [](QWidget* parent) {
                   return makeSection(parent, LabelPlace::above);
               }}}},
            {"Header",
             {{"Two lines",
               [](QWidget* parent) {
                   return new Header("photo", "Photo", "Component of the article", parent);
               }},
              {"One line",
               [](QWidget* parent) {
                   return new Header("photo", "Photo", {}, parent);
               }}}},
            {"Empty place",
             {{"Title",
               [nothing](QWidget* parent) {
                   return ofWidth(sectionWidth, new EmptyState(nothing, parent));
               }},
              {"All of it",
               [fillable](QWidget* parent) {
                   return ofWidth(sectionWidth, new EmptyState(fillable, parent));
               }}}},
            {"Line",
             {{"Across",
               [](QWidget* parent) {
                   return makeLine(Qt::Horizontal, parent);
               }},
              {"Upright", [](QWidget* parent) {
                   return makeLine(Qt::Vertical, parent);
               }}}}};
}

} // namespace quillon
