#include "ui/model/FailureColour.h"

#include <gtest/gtest.h>

TEST(FailureColour, LegibleOnLightAndDark) {
    constexpr std::uint32_t kBlack = 0x000000;
    constexpr std::uint32_t kWhite = 0xFFFFFF;
    constexpr std::uint32_t kHotLight = 0x00FFFF;
    EXPECT_EQ(FailureColour(false, kHotLight, kWhite), 0x1C2BC4U) << "a contrast of 5.5";
    EXPECT_EQ(FailureColour(false, kHotLight, kBlack), 0xA499FFU) << "a contrast of 10";
    EXPECT_EQ(FailureColour(true, kHotLight, kBlack), kHotLight) << "the user's own choice";
}
