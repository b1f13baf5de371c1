#include "layout/AnchorGeometry.h"

#include <gtest/gtest.h>

// A control of 50 x 40 at 20,10 in a client area of 200 x 100, which grows and shrinks.
TEST(AnchorGeometry, EachAnchorKeepsItsDistance) {
    const Edges distances = MeasureDistances({0, 0, 200, 100}, {20, 10, 70, 50});
    const struct {
        std::uint32_t flags;
        Placement larger, smaller;
    } cases[] = {{ANCHOR_LEFT, {20, 160, 50, 40}, {20, 0, 50, 40}},
                 {ANCHOR_TOP, {120, 10, 50, 40}, {0, 10, 50, 40}},
                 {ANCHOR_LEFT | ANCHOR_TOP | ANCHOR_RIGHT, {20, 10, 150, 40}, {20, 10, 0, 40}},
                 {ANCHOR_RIGHT | ANCHOR_BOTTOM, {120, 160, 50, 40}, {0, 0, 50, 40}},
                 {ANCHOR_ALL, {20, 10, 150, 190}, {20, 10, 0, 0}}};
    for (const auto& [flags, larger, smaller] : cases) {
        EXPECT_EQ(Arrange(flags, distances, {0, 0, 300, 250}, {20, 10, 70, 50}), larger) << flags;
        EXPECT_EQ(Arrange(flags, distances, {0, 0, 100, 55}, {20, 10, 70, 50}), smaller) << flags;
    }
    EXPECT_FALSE(IsAnchored(ANCHOR_ALL | ANCHOR_LEFT));
}

TEST(AnchorGeometry, StoredPlacesStayOnTheScreen) {
    const std::pair<Edges, Placement> cases[] = {
        {{0, 0, 1280, 900}, {0, 0, 1280, 900}},
        {{-1, -1, 1281, 901}, {100, 100, 1080, 700}},
        {{1281, 901, 1280, 900}, {100, 100, 1180, 800}},
        {{INT32_MIN, INT32_MAX, INT32_MAX, INT32_MIN}, {100, 100, 1080, 700}}};
    for (const auto& [stored, used] : cases) {
        EXPECT_EQ(CorrectPlacement(stored, 1280, 900), used) << stored.left;
    }
}
