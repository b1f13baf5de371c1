#include "util/FileTests.h"

#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"
#include "util/Handle.h"

TEST(FileTests, FilesFoldersAndPatterns) {
    const TemporaryFolder folder;
    const std::wstring file = folder.File(L"\u0416 \U0001F600.scvpr", "text");
    const struct {
        std::wstring path;
        bool exists;
        int directory;
        int opens;
    } cases[] = {{file, true, 0, 1},
                 {folder.Path(), true, 16, 0},
                 {folder.Path() + L"\\\\", false, 16, 0},
                 {file + L"\\", false, 0, 0},
                 {folder.Path(L"*.scvpr"), true, 0, 0},
                 {folder.Path(L"*.txt"), false, 0, 0},
                 {folder.Path(L"missing\\x"), false, 0, 0},
                 {L"", false, 0, 0}};
    for (const auto& each : cases) {
        SCOPED_TRACE(testing::PrintToString(each.path));
        EXPECT_EQ(CanOpenForWriting(each.path), each.opens);
        EXPECT_EQ(FileExists(each.path) != 0, each.exists);
        EXPECT_EQ(DirectoryExists(each.path), each.directory);
    }
    EXPECT_EQ(std::filesystem::file_size(file), 4U) << "asking changes nothing";
    constexpr DWORD kEverything = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const CFileHandle reader(
        CreateFileW(file.c_str(), GENERIC_READ, kEverything, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(reader);
    EXPECT_EQ(CanOpenForWriting(file), 0) << "even while it is shared with everybody";
}
