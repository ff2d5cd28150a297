#include "preview/PreviewFrame.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quillon {

namespace {

constexpr double besidesFrame = 56;   ///< points of the pane's height that caption and margins take
constexpr double shortestFrame = 320; ///< points

FrameSize portraitFrame(PreviewDevice device) {
    switch (device) {
    case PreviewDevice::iPhoneSE:
        return {320, 568};
    case PreviewDevice::iPhone:
        return {393, 852};
    case PreviewDevice::iPhonePlus:
        return {430, 932};
    case PreviewDevice::iPad:
        return {768, 1024};
    case PreviewDevice::iPadPro:
        return {1024, 1366};
    case PreviewDevice::mac:
        return {1180, 820};
    case PreviewDevice::automatic:
        break;
    }
    return {};
}

} // namespace

std::optional<FrameSize> deviceFrame(PreviewDevice device, PreviewOrientation orientation) {
    if (device == PreviewDevice::automatic) {
        return std::nullopt;
    }
    FrameSize frame = portraitFrame(device);
    if (orientation == PreviewOrientation::landscape && supportsOrientation(device)) {
        std::swap(frame.width, frame.height);
    }
    return frame;
}

double shownFrameHeight(const FrameSize& frame, double paneHeight) {
    return std::min(frame.height, std::max(paneHeight - besidesFrame, shortestFrame));
}

std::string previewCaption(const PreviewEnvironment& environment) {
    return environment.label + " · " + std::to_string(std::llround(environment.viewportWidth)) + " pt · " +
           environment.horizontalSizeClass + " · " + std::string(rawValue(environment.appearance));
}

std::string_view symbolName(PreviewDevice device) {
    switch (device) {
    case PreviewDevice::automatic:
        return "arrow.left.and.right";
    case PreviewDevice::iPhoneSE:
    case PreviewDevice::iPhone:
    case PreviewDevice::iPhonePlus:
        return "iphone";
    case PreviewDevice::iPad:
    case PreviewDevice::iPadPro:
        return "ipad";
    case PreviewDevice::mac:
        break;
    }
    return "macwindow";
}

std::string_view symbolName(PreviewOrientation orientation) {
    return orientation == PreviewOrientation::portrait ? "rectangle.portrait" : "rectangle";
}

std::string_view symbolName(PreviewAppearance appearance) {
    switch (appearance) {
    case PreviewAppearance::automatic:
        return "circle.lefthalf.filled";
    case PreviewAppearance::light:
        return "sun.max";
    case PreviewAppearance::dark:
        break;
    }
    return "moon";
}

} // namespace quillon
