#include "layout/AnchorGeometry.h"

#include <gtest/gtest.h>

#include <ostream>

static void PrintTo(const Placement& place, std::ostream* out) {
    *out << place.x << ',' << place.y << ' ' << place.width << 'x' << place.height;
}

namespace {

// A control of 50 x 40 at 20,10 in a client area of 200 x 100.
constexpr Edges kControl{20, 10, 70, 50};
constexpr Edges kFirst{0, 0, 200, 100};

TEST(AnchorGeometry, EachAnchorKeepsItsDistance) {
    EXPECT_EQ(MeasureDistances(kFirst, kControl), (Edges{20, 10, 130, 50}));
    EXPECT_EQ(MeasureDistances({5, 6, 100, 90}, kControl), (Edges{15, 4, 30, 40}));
    struct {
        std::uint32_t flags = 0;
        Placement larger;   // 300 x 250
        Placement smaller;  // 100 x 55
    } const cases[] = {
        {1, {20, 160, 50, 40}, {20, 0, 50, 40}},  {2, {120, 10, 50, 40}, {0, 10, 50, 40}},
        {3, {20, 10, 50, 40}, {20, 10, 50, 40}},  {4, {120, 160, 50, 40}, {0, 0, 50, 40}},
        {5, {20, 160, 150, 40}, {20, 0, 0, 40}},  {6, {120, 10, 50, 40}, {0, 10, 50, 40}},
        {7, {20, 10, 150, 40}, {20, 10, 0, 40}},  {8, {120, 160, 50, 40}, {0, 0, 50, 40}},
        {9, {20, 160, 50, 40}, {20, 0, 50, 40}},  {10, {120, 10, 50, 190}, {0, 10, 50, 0}},
        {11, {20, 10, 50, 190}, {20, 10, 50, 0}}, {12, {120, 160, 50, 40}, {0, 0, 50, 40}},
        {13, {20, 160, 150, 40}, {20, 0, 0, 40}}, {14, {120, 10, 50, 190}, {0, 10, 50, 0}},
        {15, {20, 10, 150, 190}, {20, 10, 0, 0}}, {16, {20, 10, 150, 190}, {20, 10, 0, 0}},
    };
    const Edges distances = MeasureDistances(kFirst, kControl);
    for (const auto& item : cases) {
        SCOPED_TRACE(item.flags);
        EXPECT_TRUE(IsAnchored(item.flags));
        EXPECT_EQ(Arrange(item.flags, distances, {0, 0, 300, 250}, kControl), item.larger);
        EXPECT_EQ(Arrange(item.flags, distances, {0, 0, 100, 55}, kControl), item.smaller);
        // Wherever a resize in between has left a control, its way back ends where it began.
        EXPECT_EQ(Arrange(item.flags, distances, kFirst, {40, 90, 90, 130}), (Placement{20, 10, 50, 40}));
    }
    for (const std::uint32_t flags : {0U, 17U, 31U, 32U, 0xFFFFFFFFU}) {
        EXPECT_FALSE(IsAnchored(flags)) << flags;
    }
    EXPECT_EQ(Arrange(16, {-5, -3, 130, 50}, kFirst, kControl), (Placement{0, 0, 75, 53}))
        << "a negative position is cut, the size is not";
}

TEST(AnchorGeometry, LimitsAndStoredPlaces) {
    EXPECT_EQ(MinTrackSize(300), 240);
    EXPECT_EQ(MinTrackSize(333), 266);
    EXPECT_EQ(MinTrackSize(0), 0);
    struct {
        const char* what = nullptr;
        Edges stored;
        Placement used;  // on a screen of 1280 x 900
    } const cases[] = {
        {"on the screen", {10, 20, 510, 420}, {10, 20, 500, 400}},
        {"its very edges", {0, 0, 1280, 900}, {0, 0, 1280, 900}},
        {"just off", {-1, -1, 1281, 901}, {100, 100, 1080, 700}},
        {"left and top beyond the far edges", {1281, 901, 1280, 900}, {100, 100, 1180, 800}},
        {"left and top on the far edges", {1280, 900, 1280, 900}, {1280, 900, 0, 0}},
        {"minimised", {-32000, -32000, -31840, -31972}, {100, 100, 1080, 700}},
        {"inside out", {600, 500, 200, 100}, {600, 500, -400, -400}},
        {"anything", {INT32_MIN, INT32_MAX, INT32_MAX, INT32_MIN}, {100, 100, 1080, 700}},
    };
    for (const auto& item : cases) {
        EXPECT_EQ(CorrectPlacement(item.stored, 1280, 900), item.used) << item.what;
    }
}

}  // namespace
