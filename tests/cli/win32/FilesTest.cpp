#include "cli/win32/Files.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/TemporaryFolder.h"

namespace {

using Paths = std::vector<std::wstring>;

TEST(Files, PatternsFindFilesByWholeNames) {
    const TemporaryFolder folder;
    const std::wstring b = folder.File(L"b.scvpr", "");
    const std::wstring a = folder.File(L"A \u0426.SCVPR", "");
    (void)folder.File(L"a.scvpr_old",
                      "");  // its short name ends in .SCV, which the system's own pattern finds
    (void)folder.File(L"a.oslpr", "");
    std::filesystem::create_directory(folder.Path(L"c.scvpr"));
    EXPECT_EQ(FindFiles(folder.Path(L"*.scvpr")), (Paths{a, b}));
    EXPECT_EQ(FindFiles(folder.Path(L"?.scvpr")), Paths{b});
    EXPECT_EQ(FindFiles(folder.Path(L"none*")), Paths{});
    EXPECT_EQ(FindFiles(folder.Path(L"none\\*.scvpr")), Paths{});
}

}  // namespace
