#include "render/PreviewEnvironment.h"

#include <algorithm>
#include <array>

namespace quillon {

namespace {

using enum PreviewDevice;

constexpr std::array appearances = {PreviewAppearance::automatic, PreviewAppearance::light,
                                    PreviewAppearance::dark};
constexpr std::array orientations = {PreviewOrientation::portrait, PreviewOrientation::landscape};
constexpr std::array devices = {automatic, iPhoneSE, iPhone, iPhonePlus, iPad, iPadPro, mac};

constexpr double smallestViewport = 320; ///< points
constexpr double regularWidth = 600;     ///< points; narrower is compact
constexpr double regularHeight = 500;    ///< points; lower is compact

constexpr std::string_view compact = "compact";
constexpr std::string_view regular = "regular";

/// A device whose screen is known, upright.
struct Screen {
    PreviewDevice device;
    double width;  ///< points
    double height; ///< points
    std::string_view platform;
};

constexpr std::array<Screen, 6> screens = {{
    {iPhoneSE, 320, 568, "ios"},
    {iPhone, 393, 852, "ios"},
    {iPhonePlus, 430, 932, "ios"},
    {iPad, 768, 1024, "ios"},
    {iPadPro, 1024, 1366, "ios"},
    {mac, 1180, 820, "macos"},
}};

/// The case among `cases` whose raw value is `text`.
template <typename Cases>
auto caseNamed(std::string_view text, const Cases& cases) -> std::optional<typename Cases::value_type> {
    const auto found = std::find_if(cases.begin(), cases.end(),
                                    [text](auto candidate) { return rawValue(candidate) == text; });
    return found == cases.end() ? std::nullopt : std::optional(*found);
}

} // namespace

std::span<const PreviewAppearance> allAppearances() {
    return appearances;
}

std::span<const PreviewOrientation> allOrientations() {
    return orientations;
}

std::span<const PreviewDevice> allDevices() {
    return devices;
}

std::string_view rawValue(PreviewAppearance appearance) {
    switch (appearance) {
    case PreviewAppearance::automatic:
        return "Auto";
    case PreviewAppearance::light:
        return "Light";
    case PreviewAppearance::dark:
        return "Dark";
    }
    return {};
}

std::string_view rawValue(PreviewOrientation orientation) {
    return orientation == PreviewOrientation::portrait ? "Portrait" : "Landscape";
}

std::string_view rawValue(PreviewDevice device) {
    switch (device) {
    case automatic:
        return "Auto";
    case iPhoneSE:
        return "iPhone SE";
    case iPhone:
        return "iPhone";
    case iPhonePlus:
        return "iPhone Plus";
    case iPad:
        return "iPad";
    case iPadPro:
        return "iPad Pro";
    case mac:
        return "Mac";
    }
    return {};
}

std::optional<PreviewAppearance> previewAppearance(std::string_view text) {
    return caseNamed(text, appearances);
}

std::optional<PreviewOrientation> previewOrientation(std::string_view text) {
    return caseNamed(text, orientations);
}

std::optional<PreviewDevice> previewDevice(std::string_view text) {
    return caseNamed(text, devices);
}

PreviewEnvironment previewEnvironment(PreviewDevice device, PreviewOrientation orientation, double paneWidth,
                                      std::optional<double> paneHeight) {
    PreviewEnvironment environment;
    environment.label = rawValue(device);
    double width = paneWidth;
    const auto screen = std::find_if(screens.begin(), screens.end(),
                                     [device](const Screen& known) { return known.device == device; });
    if (screen == screens.end()) {
        environment.platform = "ios";
        environment.viewportWidth = std::max(smallestViewport, paneWidth);
        environment.viewportHeight = paneHeight;
    } else {
        const bool isTurned = orientation == PreviewOrientation::landscape && supportsOrientation(device);
        width = isTurned ? screen->height : screen->width;
        environment.platform = screen->platform;
        environment.viewportWidth = width;
        environment.viewportHeight = isTurned ? screen->width : screen->height;
    }
    // The pane itself decides, not the viewport that is never narrower than the smallest screen.
    environment.horizontalSizeClass = width < regularWidth ? compact : regular;
    const double height = environment.viewportHeight.value_or(regularHeight); // an unknown height is regular
    environment.verticalSizeClass = height < regularHeight ? compact : regular;
    return environment;
}

bool supportsOrientation(PreviewDevice device) {
    return device != automatic && device != mac;
}

} // namespace quillon
