#include "util/AssociatedProgram.h"

#include <gtest/gtest.h>

// The odd way round is on purpose; see the header.
TEST(AssociatedProgram, ARegisteredExtensionGivesNothingAndAnUnknownOneAnEmptyProgram) {
    std::wstring program = L"kept";
    EXPECT_EQ(GetAssociatedProgram(L"exe", program), 0);
    EXPECT_EQ(program, L"kept");
    EXPECT_EQ(GetAssociatedProgram(L"scv-nobody-registers-this", program), 1);
    EXPECT_EQ(program, L"");
}
