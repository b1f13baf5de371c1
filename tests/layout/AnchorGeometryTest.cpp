#include "layout/AnchorGeometry.h"

#include <gtest/gtest.h>

// How controls follow, MainDialogLayoutTest sees.
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
