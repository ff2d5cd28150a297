#include "cli/EnvironmentOptions.h"

#include "base/JsonText.h"
#include "base/Numbers.h"
#include "base/endpoints.h"

#include <algorithm>
#include <array>
#include <functional>
#include <span>
#include <utility>

namespace quillon::cli {

namespace {

template <typename Case>
struct Named {
    std::string_view name;
    Case value;
};

constexpr std::array<Named<PreviewDevice>, 7> devices = {{
    {"auto", PreviewDevice::automatic},
    {"iphone-se", PreviewDevice::iPhoneSE},
    {"iphone", PreviewDevice::iPhone},
    {"iphone-plus", PreviewDevice::iPhonePlus},
    {"ipad", PreviewDevice::iPad},
    {"ipad-pro", PreviewDevice::iPadPro},
    {"mac", PreviewDevice::mac},
}};
constexpr std::array<Named<PreviewOrientation>, 2> orientations = {{
    {"portrait", PreviewOrientation::portrait},
    {"landscape", PreviewOrientation::landscape},
}};
constexpr std::array<Named<PreviewAppearance>, 3> appearances = {{
    {"auto", PreviewAppearance::automatic},
    {"light", PreviewAppearance::light},
    {"dark", PreviewAppearance::dark},
}};
/// The names of the appearances in an `--environment`.
constexpr std::array<Named<PreviewAppearance>, 3> appearanceFields = {{
    {"automatic", PreviewAppearance::automatic},
    {"light", PreviewAppearance::light},
    {"dark", PreviewAppearance::dark},
}};

template <typename Case>
std::optional<Case> named(std::span<const Named<Case>> table, std::string_view name) {
    const auto found =
        std::find_if(table.begin(), table.end(), [&](const auto& row) { return row.name == name; });
    return found == table.end() ? std::nullopt : std::optional(found->value);
}

template <typename Table>
std::vector<std::string> namesOf(const Table& table) {
    std::vector<std::string> names;
    for (const auto& row : table) {
        names.emplace_back(row.name);
    }
    return names;
}

/// The width and height of "1024x768"; nothing for any other text.
std::optional<std::pair<double, double>> paneSize(std::string_view text) {
    const size_t cross = text.find('x');
    if (cross == std::string_view::npos) {
        return std::nullopt;
    }
    const auto width = parseDouble(text.substr(0, cross));
    const auto height = parseDouble(text.substr(cross + 1));
    if (!width || !height || *width <= 0 || *height <= 0) {
        return std::nullopt;
    }
    return std::pair(*width, *height);
}

/// How one field of an `--environment` is laid over `environment`: false for a value that it cannot take.
struct EnvironmentField {
    std::string_view name;
    std::string_view expected;
    bool (*assign)(PreviewEnvironment& environment, JsonElement value);
};

template <std::string PreviewEnvironment::*field>
bool assignText(PreviewEnvironment& environment, JsonElement value) {
    const auto text = value.text();
    environment.*field = std::string(text.value_or(""));
    return text.has_value();
}

template <std::optional<std::string> PreviewEnvironment::*field>
bool assignOptionalText(PreviewEnvironment& environment, JsonElement value) {
    const auto text = value.text();
    environment.*field = text ? std::optional<std::string>(*text) : std::nullopt;
    return text || value.isNull();
}

constexpr std::array<EnvironmentField, 9> environmentFields = {{
    {"viewportWidth", "a number",
     [](PreviewEnvironment& environment, JsonElement value) {
         environment.viewportWidth = value.number().value_or(0);
         return value.number().has_value();
     }},
    {"viewportHeight", "a number or null",
     [](PreviewEnvironment& environment, JsonElement value) {
         environment.viewportHeight = value.number();
         return value.number() || value.isNull();
     }},
    {"platform", "text", assignText<&PreviewEnvironment::platform>},
    {"horizontalSizeClass", "text", assignText<&PreviewEnvironment::horizontalSizeClass>},
    {"verticalSizeClass", "text", assignText<&PreviewEnvironment::verticalSizeClass>},
    {"label", "text", assignText<&PreviewEnvironment::label>},
    {"appearance", R"("automatic", "light" or "dark")",
     [](PreviewEnvironment& environment, JsonElement value) {
         const auto appearance = named<PreviewAppearance>(appearanceFields, value.text().value_or(""));
         environment.appearance = appearance.value_or(PreviewAppearance::automatic);
         return appearance.has_value();
     }},
    {"mapsEmbedToken", "text or null", assignOptionalText<&PreviewEnvironment::mapsEmbedToken>},
    {"mapsEmbedOrigin", "text or null", assignOptionalText<&PreviewEnvironment::mapsEmbedOrigin>},
}};

Result<void> layOver(PreviewEnvironment& environment, const std::string& json) {
    const auto text = JsonText::parse(json);
    if (!text) {
        return misused("--environment: column " + std::to_string(text.error().column) + ": expected " +
                       text.error().expected + ", found " + text.error().found);
    }
    if (text->root().kind() != JsonKind::object) {
        return misused("--environment: expected an object, found " +
                       std::string(describe(text->root().kind())));
    }
    for (JsonMembers members(text->root()); members.next();) {
        const std::string name(members.key());
        const auto field = std::find_if(environmentFields.begin(), environmentFields.end(),
                                        [&](const EnvironmentField& row) { return row.name == name; });
        if (field == environmentFields.end()) {
            std::string known;
            for (const EnvironmentField& row : environmentFields) {
                known += (known.empty() ? "" : ", ") + std::string(row.name);
            }
            return misused("--environment: no field is named \"" + name + "\"; the fields are " + known);
        }
        if (!field->assign(environment, members.value())) {
            return misused("--environment: " + name + ": expected " + std::string(field->expected) +
                           ", found " + std::string(describe(members.value().kind())));
        }
    }
    return {};
}

} // namespace

std::vector<std::string> deviceNames() {
    return namesOf(devices);
}
std::vector<std::string> orientationNames() {
    return namesOf(orientations);
}
std::vector<std::string> appearanceNames() {
    return namesOf(appearances);
}

Result<PreviewEnvironment> environmentOf(const EnvironmentOptions& options) {
    const auto device = named<PreviewDevice>(devices, options.device);
    const auto orientation = named<PreviewOrientation>(orientations, options.orientation);
    const auto appearance = named<PreviewAppearance>(appearances, options.appearance);
    const auto pane = paneSize(options.pane);
    if (!device || !orientation || !appearance) {
        return misused("--device, --orientation and --appearance take the names that --help lists");
    }
    if (!pane) {
        return misused("--pane: expected WIDTHxHEIGHT in points, such as 1024x768, found " + options.pane);
    }
    PreviewEnvironment environment = previewEnvironment(*device, *orientation, pane->first, pane->second);
    environment.appearance = *appearance;
    if (!options.mapsToken.empty()) {
        environment.mapsEmbedToken = options.mapsToken;
    }
    environment.mapsEmbedOrigin =
        options.mapsOrigin.empty() ? std::string(endpoints::productOrigin) : options.mapsOrigin;
    if (!options.environment.empty()) {
        if (auto laid = layOver(environment, options.environment); !laid) {
            return unexpected(laid.error());
        }
    }
    return environment;
}

} // namespace quillon::cli
