#include "preview/PreviewFrame.h"

#include <gtest/gtest.h>

namespace quillon {

TEST(PreviewFrame, everyDeviceHasItsSizeAndOnlyHandheldsTurn) {
    struct Case {
        PreviewDevice device;
        double width;
        double height;
        bool turns;
    };
    const Case cases[] = {
        {PreviewDevice::iPhoneSE, 320, 568, true},   {PreviewDevice::iPhone, 393, 852, true},
        {PreviewDevice::iPhonePlus, 430, 932, true}, {PreviewDevice::iPad, 768, 1024, true},
        {PreviewDevice::iPadPro, 1024, 1366, true},  {PreviewDevice::mac, 1180, 820, false},
    };
    for (const Case& row : cases) {
        const FrameSize upright = *deviceFrame(row.device, PreviewOrientation::portrait);
        const FrameSize lying = *deviceFrame(row.device, PreviewOrientation::landscape);
        EXPECT_EQ(upright.width, row.width);
        EXPECT_EQ(upright.height, row.height);
        EXPECT_EQ(lying.width, row.turns ? row.height : row.width);
        EXPECT_EQ(lying.height, row.turns ? row.width : row.height);
    }
    EXPECT_FALSE(deviceFrame(PreviewDevice::automatic, PreviewOrientation::landscape));
}

TEST(PreviewFrame, aLowPaneShowsPartOfTheFrame) {
    const FrameSize frame{393, 852};
    EXPECT_EQ(shownFrameHeight(frame, 2000), 852);
    EXPECT_EQ(shownFrameHeight(frame, 600), 544);
    EXPECT_EQ(shownFrameHeight(frame, 200), 320);
    EXPECT_EQ(shownFrameHeight({393, 300}, 200), 300);
}

TEST(PreviewFrame, theCaptionSaysWhatThePageIsFor) {
    PreviewEnvironment environment =
        previewEnvironment(PreviewDevice::iPhone, PreviewOrientation::portrait, 0, {});
    environment.appearance = PreviewAppearance::dark;
    EXPECT_EQ(previewCaption(environment), "iPhone · 393 pt · compact · Dark");
    EXPECT_EQ(previewCaption(environment, 0.75), "iPhone · 393 pt · compact · Dark · 75 %");
}

TEST(PreviewFrame, zoomGoesStepByStepBetweenItsBounds) {
    for (const auto step : {zoom::in, zoom::out}) {
        double current = zoom::actual;
        int steps = 0;
        for (; step(current) != current; current = step(current)) {
            ++steps;
        }
        EXPECT_GT(steps, 5);
        EXPECT_TRUE(current == 0.25 || current == 3) << current;
    }
    EXPECT_EQ(zoom::out(zoom::in(zoom::actual)), zoom::actual);
}

} // namespace quillon
