#include "preview/PreviewFrame.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quillon {

namespace {

constexpr double besidesFrame = 56;   ///< points of the pane's height that caption and margins take
constexpr double shortestFrame = 320; ///< points

constexpr double zoomSteps[] = {0.25, 0.33, 0.5, 0.67, 0.75, 0.9, 1, 1.1, 1.25, 1.5, 1.75, 2, 2.5, 3};

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

double zoom::in(double zoom) {
    const auto* next = std::upper_bound(std::begin(zoomSteps), std::end(zoomSteps), zoom);
    return next == std::end(zoomSteps) ? zoom : *next;
}

double zoom::out(double zoom) {
    const auto* next = std::lower_bound(std::begin(zoomSteps), std::end(zoomSteps), zoom);
    return next == std::begin(zoomSteps) ? zoom : *(next - 1);
}

std::string previewCaption(const PreviewEnvironment& environment, double zoom) {
    std::string caption =
        environment.label + " · " + std::to_string(std::llround(environment.viewportWidth)) + " pt · " +
        environment.horizontalSizeClass + " · " + std::string(rawValue(environment.appearance));
    if (zoom != zoom::actual) {
        caption += " · " + std::to_string(std::lround(zoom * 100)) + " %";
    }
    return caption;
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
