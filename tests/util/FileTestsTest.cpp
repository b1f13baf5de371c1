#include "util/FileTests.h"

#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"
#include "util/Handle.h"

TEST(FileTests, FilesFoldersAndPatterns) {
    const TemporaryFolder folder;
    const std::wstring file = folder.File(L"a b.scvpr", "x");
    const std::wstring emoji = folder.File(L"\u0416\u4fa1\U0001F600.scvpr", "x");
    const struct {
        std::wstring path;
        bool exists;
        int directory;
    } cases[] = {
        {file, true, 0},
        {emoji, true, 0},
        {folder.Path(), true, 16},
        {folder.Path() + L"\\\\", false, 16},
        {file + L"\\", false, 0},
        {folder.Path(L"*.scvpr"), true, 0},
        {folder.Path(L"*.txt"), false, 0},
        {folder.Path(L"missing"), false, 0},
        {folder.Path(L"missing\\x"), false, 0},
        {L"", false, 0},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(testing::PrintToString(each.path));
        EXPECT_EQ(FileExists(each.path) != 0, each.exists);
        EXPECT_EQ(DirectoryExists(each.path), each.directory);
    }
}

TEST(FileTests, AFileOpensForWritingOnlyWhenNobodyHasIt) {
    const TemporaryFolder folder;
    const std::wstring file = folder.File(L"a", "text");
    EXPECT_EQ(CanOpenForWriting(file), 1);
    EXPECT_EQ(std::filesystem::file_size(file), 4U) << "asking changes nothing";
    EXPECT_EQ(CanOpenForWriting(folder.Path()), 0);
    EXPECT_EQ(CanOpenForWriting(folder.Path(L"missing")), 0);
    EXPECT_EQ(FileExists(folder.Path(L"missing")), 0);
    {
        constexpr DWORD kEverything = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
        const CFileHandle reader(
            CreateFileW(file.c_str(), GENERIC_READ, kEverything, nullptr, OPEN_EXISTING, 0, nullptr));
        ASSERT_TRUE(reader);
        EXPECT_EQ(CanOpenForWriting(file), 0) << "even while it is shared with everybody";
    }
    EXPECT_EQ(CanOpenForWriting(file), 1);
}
