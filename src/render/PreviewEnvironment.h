#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quillon {

/// The appearance that a page is shown in; `automatic` leaves it to the page's media queries.
enum class PreviewAppearance { automatic, light, dark };
enum class PreviewOrientation { portrait, landscape };
enum class PreviewDevice { automatic, iPhoneSE, iPhone, iPhonePlus, iPad, iPadPro, mac };

/// All cases of each, in the order in which they are offered.
std::span<const PreviewAppearance> allAppearances();
std::span<const PreviewOrientation> allOrientations();
std::span<const PreviewDevice> allDevices();

/// The label shown to the user, which also names the case: "Auto", "iPhone SE".
std::string_view rawValue(PreviewAppearance appearance);
std::string_view rawValue(PreviewOrientation orientation);
std::string_view rawValue(PreviewDevice device);

/// The case of a label; nothing for any other text.
std::optional<PreviewAppearance> previewAppearance(std::string_view rawValue);
std::optional<PreviewOrientation> previewOrientation(std::string_view rawValue);
std::optional<PreviewDevice> previewDevice(std::string_view rawValue);

/// What a page is rendered for: the renderer's only input beside the article, and what conditions are tested
/// against.
struct PreviewEnvironment {
    double viewportWidth = 0;             ///< points
    std::optional<double> viewportHeight; ///< points; not read by the renderer
    std::string platform;                 ///< "ios" or "macos"
    std::string horizontalSizeClass;      ///< "compact" or "regular"
    std::string verticalSizeClass;        ///< "compact" or "regular"
    std::string label;                    ///< the device's label
    PreviewAppearance appearance = PreviewAppearance::automatic;
    std::optional<std::string> mapsEmbedToken;  ///< of the host's configuration
    std::optional<std::string> mapsEmbedOrigin; ///< where the page is shown, for the maps embed

    bool operator==(const PreviewEnvironment&) const = default;
};

/// The environment of a device. The automatic one follows the pane, whose size is in points; its height may
/// be unknown. The appearance is automatic and the maps fields are absent: the caller sets them.
PreviewEnvironment previewEnvironment(PreviewDevice device, PreviewOrientation orientation, double paneWidth,
                                      std::optional<double> paneHeight);

/// Whether the orientation makes a difference.
bool supportsOrientation(PreviewDevice device);

} // namespace quillon
