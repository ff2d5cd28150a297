#include "render/PreviewEnvironment.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

TEST(PreviewEnvironment, devices) {
    using enum PreviewDevice;
    using enum PreviewOrientation;
    constexpr std::optional<double> unknown;
    const struct {
        PreviewDevice device;
        PreviewOrientation orientation;
        double paneWidth;
        std::optional<double> paneHeight;
        double width;
        std::optional<double> height;
        std::string_view platform;
        std::string_view horizontal;
        std::string_view vertical;
        std::string_view label;
    } cases[] = {
        {iPhoneSE, portrait, 900, 100, 320, 568, "ios", "compact", "regular", "iPhone SE"},
        {iPhoneSE, landscape, 900, 900, 568, 320, "ios", "compact", "compact", "iPhone SE"},
        {iPhone, portrait, 900, 100, 393, 852, "ios", "compact", "regular", "iPhone"},
        {iPhone, landscape, 100, 900, 852, 393, "ios", "regular", "compact", "iPhone"},
        {iPhonePlus, portrait, 900, 100, 430, 932, "ios", "compact", "regular", "iPhone Plus"},
        {iPhonePlus, landscape, 100, 900, 932, 430, "ios", "regular", "compact", "iPhone Plus"},
        {iPad, portrait, 100, 100, 768, 1024, "ios", "regular", "regular", "iPad"},
        {iPad, landscape, 100, 100, 1024, 768, "ios", "regular", "regular", "iPad"},
        {iPadPro, portrait, 100, 100, 1024, 1366, "ios", "regular", "regular", "iPad Pro"},
        {iPadPro, landscape, 100, 100, 1366, 1024, "ios", "regular", "regular", "iPad Pro"},
        {mac, portrait, 100, 100, 1180, 820, "macos", "regular", "regular", "Mac"},
        {mac, landscape, 100, 100, 1180, 820, "macos", "regular", "regular", "Mac"},
        {automatic, portrait, 250, 700, 320, 700, "ios", "compact", "regular", "Auto"},
        {automatic, landscape, 599.9, 480, 599.9, 480, "ios", "compact", "compact", "Auto"},
        {automatic, portrait, 600, 500, 600, 500, "ios", "regular", "regular", "Auto"},
        {automatic, landscape, 1500, unknown, 1500, unknown, "ios", "regular", "regular", "Auto"},
    };
    for (const auto& expected : cases) {
        SCOPED_TRACE(std::string(expected.label) + " " + std::string(rawValue(expected.orientation)) + " " +
                     std::to_string(expected.paneWidth));
        const auto environment = previewEnvironment(expected.device, expected.orientation, expected.paneWidth,
                                                    expected.paneHeight);
        EXPECT_EQ(environment.viewportWidth, expected.width);
        EXPECT_EQ(environment.viewportHeight, expected.height);
        EXPECT_EQ(environment.platform, expected.platform);
        EXPECT_EQ(environment.horizontalSizeClass, expected.horizontal);
        EXPECT_EQ(environment.verticalSizeClass, expected.vertical);
        EXPECT_EQ(environment.label, expected.label);
        EXPECT_EQ(environment.appearance, PreviewAppearance::automatic);
        EXPECT_FALSE(environment.mapsEmbedToken || environment.mapsEmbedOrigin);
        EXPECT_EQ(supportsOrientation(expected.device),
                  expected.device != automatic && expected.device != mac);
    }
}

TEST(PreviewEnvironment, labelsNameTheirCases) {
    std::string labels;
    for (const auto appearance : allAppearances()) {
        labels.append(rawValue(appearance)).append(", ");
        EXPECT_EQ(previewAppearance(rawValue(appearance)), appearance);
    }
    for (const auto orientation : allOrientations()) {
        labels.append(rawValue(orientation)).append(", ");
        EXPECT_EQ(previewOrientation(rawValue(orientation)), orientation);
    }
    for (const auto device : allDevices()) {
        labels.append(rawValue(device)).append(", ");
        EXPECT_EQ(previewDevice(rawValue(device)), device);
    }
    EXPECT_EQ(labels, "Auto, Light, Dark, Portrait, Landscape, "
                      "Auto, iPhone SE, iPhone, iPhone Plus, iPad, iPad Pro, Mac, ");
    EXPECT_EQ(previewAppearance("auto"), std::nullopt);
    EXPECT_EQ(previewOrientation(""), std::nullopt);
    EXPECT_EQ(previewDevice("iPhone "), std::nullopt);
}

TEST(PreviewEnvironment, everyFieldTellsTwoApart) {
    const PreviewEnvironment one =
        previewEnvironment(PreviewDevice::iPad, PreviewOrientation::portrait, 0, std::nullopt);
    const auto differs = [&one](auto field, auto value) {
        PreviewEnvironment other = one;
        other.*field = value;
        return !(other == one);
    };
    EXPECT_FALSE(differs(&PreviewEnvironment::platform, "ios"));
    EXPECT_TRUE(differs(&PreviewEnvironment::viewportWidth, 769));
    EXPECT_TRUE(differs(&PreviewEnvironment::viewportHeight, std::nullopt));
    EXPECT_TRUE(differs(&PreviewEnvironment::platform, "macos"));
    EXPECT_TRUE(differs(&PreviewEnvironment::horizontalSizeClass, "compact"));
    EXPECT_TRUE(differs(&PreviewEnvironment::verticalSizeClass, "compact"));
    EXPECT_TRUE(differs(&PreviewEnvironment::label, "Mac"));
    EXPECT_TRUE(differs(&PreviewEnvironment::appearance, PreviewAppearance::dark));
    EXPECT_TRUE(differs(&PreviewEnvironment::mapsEmbedToken, "token"));
    EXPECT_TRUE(differs(&PreviewEnvironment::mapsEmbedOrigin, ""));
}

} // namespace
} // namespace quillon
