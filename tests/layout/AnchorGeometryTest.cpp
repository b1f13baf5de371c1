#include "layout/AnchorGeometry.h"

#include <gtest/gtest.h>

#include <tuple>

TEST(AnchorGeometry, WindowIsFittedIntoTheWorkArea) {
    // Below a task bar of 40 pixels and right of another one of 60.
    constexpr Edges area{60, 40, 1366, 768};
    const std::tuple<const char*, Placement, Placement> cases[] = {
        {"inside", {100, 100, 800, 600}, {100, 100, 800, 600}},
        {"of its size", {60, 40, 1306, 728}, {60, 40, 1306, 728}},
        {"off to the right and below", {1000, 700, 800, 600}, {566, 168, 800, 600}},
        {"off to the left and above", {0, -500, 800, 600}, {60, 40, 800, 600}},
        {"too wide", {300, 100, 1400, 600}, {60, 100, 1306, 600}},
        {"too high", {300, 100, 800, 1000}, {300, 40, 800, 728}},
    };
    for (const auto& [label, window, fitted] : cases) {
        EXPECT_EQ(FitInto(area, window), fitted) << label;
    }
}

TEST(AnchorGeometry, ControlsFollowTheirEdges) {
    constexpr Edges before{10, 20, 110, 70};
    const std::tuple<const char*, std::uint32_t, Placement> cases[] = {
        {"left, top", ANCHOR_LEFT | ANCHOR_TOP, {10, 20, 100, 50}},
        {"right, bottom", ANCHOR_RIGHT | ANCHOR_BOTTOM, {70, 60, 100, 50}},
        {"all", ANCHOR_ALL, {10, 20, 160, 90}},
    };
    for (const auto& [label, anchors, placed] : cases) {
        const auto distances = MeasureDistances({0, 0, 400, 300}, before);
        EXPECT_EQ(Arrange(anchors, distances, {0, 0, 460, 340}, before), placed) << label;
    }
}

TEST(AnchorGeometry, StoredPlacesStayOnTheScreen) {
    const std::tuple<const char*, Edges, Placement> cases[] = {
        {"whole screen", {0, 0, 1280, 900}, {0, 0, 1280, 900}},
        {"one pixel too large", {-1, -1, 1281, 901}, {100, 100, 1080, 700}},
        {"right and below", {1281, 901, 1280, 900}, {100, 100, 1180, 800}},
        {"no integers beyond", {INT32_MIN, INT32_MAX, INT32_MAX, INT32_MIN}, {100, 100, 1080, 700}}};
    for (const auto& [label, stored, used] : cases) {
        EXPECT_EQ(CorrectPlacement(stored, 1280, 900), used) << label;
    }
}
