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

/// The line over the page: "iPhone · 393 pt · compact · Dark".
std::string previewCaption(const PreviewEnvironment& environment);

/// The system symbols that stand for a device, an orientation and an appearance.
std::string_view symbolName(PreviewDevice device);
std::string_view symbolName(PreviewOrientation orientation);
std::string_view symbolName(PreviewAppearance appearance);

} // namespace quillon
