#include "layout/AnchorGeometry.h"

#include <gtest/gtest.h>

// A control of 50 x 40 at 20,10 in a client area of 200 x 100.
TEST(AnchorGeometry, EachAnchorKeepsItsDistance) {
    constexpr Edges kControl{20, 10, 70, 50};
    constexpr Edges kFirst{0, 0, 200, 100};
    const Edges distances = MeasureDistances(kFirst, kControl);
    EXPECT_EQ(MeasureDistances({5, 6, 100, 90}, kControl), (Edges{15, 4, 30, 40}));
    const struct {
        std::uint32_t flags;
        Placement larger;   // 300 x 250
        Placement smaller;  // 100 x 55
    } cases[] = {
        {1, {20, 160, 50, 40}, {20, 0, 50, 40}},  {2, {120, 10, 50, 40}, {0, 10, 50, 40}},
        {3, {20, 10, 50, 40}, {20, 10, 50, 40}},  {4, {120, 160, 50, 40}, {0, 0, 50, 40}},
        {7, {20, 10, 150, 40}, {20, 10, 0, 40}},  {9, {20, 160, 50, 40}, {20, 0, 50, 40}},
        {11, {20, 10, 50, 190}, {20, 10, 50, 0}}, {12, {120, 160, 50, 40}, {0, 0, 50, 40}},
        {15, {20, 10, 150, 190}, {20, 10, 0, 0}}, {16, {20, 10, 150, 190}, {20, 10, 0, 0}},
    };
    for (const auto& item : cases) {
        SCOPED_TRACE(item.flags);
        EXPECT_TRUE(IsAnchored(item.flags));
        EXPECT_EQ(Arrange(item.flags, distances, {0, 0, 300, 250}, kControl), item.larger);
        EXPECT_EQ(Arrange(item.flags, distances, {0, 0, 100, 55}, kControl), item.smaller);
        // Wherever a resize in between has left a control, its way back ends where it began.
        EXPECT_EQ(Arrange(item.flags, distances, kFirst, {40, 90, 90, 130}), (Placement{20, 10, 50, 40}));
    }
    EXPECT_FALSE(IsAnchored(0));
    EXPECT_FALSE(IsAnchored(ANCHOR_ALL | ANCHOR_LEFT));
}

TEST(AnchorGeometry, StoredPlacesStayOnTheScreen) {
    const struct {
        Edges stored;
        Placement used;  // on a screen of 1280 x 900
    } cases[] = {
        {{0, 0, 1280, 900}, {0, 0, 1280, 900}},
        {{-1, -1, 1281, 901}, {100, 100, 1080, 700}},
        {{1281, 901, 1280, 900}, {100, 100, 1180, 800}},
        {{-32000, -32000, -31840, -31972}, {100, 100, 1080, 700}},  // minimised
        {{INT32_MIN, INT32_MAX, INT32_MAX, INT32_MIN}, {100, 100, 1080, 700}},
    };
    for (const auto& item : cases) {
        EXPECT_EQ(CorrectPlacement(item.stored, 1280, 900), item.used) << item.stored.left;
    }
    EXPECT_EQ(MinTrackSize(333), 266);
}
