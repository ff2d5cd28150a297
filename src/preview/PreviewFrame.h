#pragma once

#include "render/PreviewEnvironment.h"

#include <optional>
#include <string>
#include <string_view>

/// How the preview pane presents a page.
namespace quillon {

struct FrameSize {
    double width = 0;  ///< points
    double height = 0; ///< points
};

/// The frame that a device's page is shown in; nothing for the automatic one, whose page fills the pane.
std::optional<FrameSize> deviceFrame(PreviewDevice device, PreviewOrientation orientation);

/// The part of a frame's height that is shown in a pane; the width is always shown whole.
double shownFrameHeight(const FrameSize& frame, double paneHeight);

/// How large a page is shown, 1 being its own size.
namespace zoom {
constexpr double actual = 1;
/// The next larger and smaller of the usual steps; the last one stays.
double in(double zoom);
double out(double zoom);
} // namespace zoom

/// The line over the page: "iPhone · 393 pt · compact · Dark", and behind it the zoom where there is one.
std::string previewCaption(const PreviewEnvironment& environment, double zoom = zoom::actual);

/// The system symbols that stand for a device, an orientation and an appearance.
std::string_view symbolName(PreviewDevice device);
std::string_view symbolName(PreviewOrientation orientation);
std::string_view symbolName(PreviewAppearance appearance);

} // namespace quillon
