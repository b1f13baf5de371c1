#include "util/win32/FileTests.h"

#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"
#include "util/win32/Handle.h"

TEST(FileTests, FilesFoldersAndPatterns) {
    const TemporaryFolder folder;
    const std::wstring file = folder.File(L"\u0416 \U0001F600.scvpr", "text");
    // Whether it exists, is a folder, can be opened.
    const std::tuple<const char*, std::wstring, std::vector<int>> cases[] = {
        {"file", file, {1, 0, 1}},
        {"folder", folder.Path(), {1, 16, 0}},
        {"backslashes at the end", folder.Path() + L"\\\\", {0, 16, 0}},
        {"pattern", folder.Path(L"*.scvpr"), {1, 0, 0}}};
    for (const auto& [label, path, results] : cases) {
        EXPECT_EQ((std::vector{FileExists(path), DirectoryExists(path), CanOpenForWriting(path)}), results)
            << label;
    }
    EXPECT_EQ(BytesOf(file), "text") << "asking changes nothing";
    constexpr DWORD kEverything = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const CFileHandle reader(
        CreateFileW(file.c_str(), GENERIC_READ, kEverything, nullptr, OPEN_EXISTING, 0, nullptr));
    EXPECT_EQ(CanOpenForWriting(file), 0) << "even while it is shared with everybody";
}

TEST(FileTests, PathsOfOtherMachines) {
    const std::pair<const wchar_t*, bool> cases[] = {{L"\\\\server\\share\\a.scvpr", true},
                                                     {L"//server/share/a.scvpr", true},
                                                     {L"\\\\?\\unc\\server\\share", true},
                                                     {L"\\\\?\\C:\\a.scvpr", false},
                                                     {L"C:\\a.scvpr", false}};
    for (const auto& [path, isRemote] : cases) {
        EXPECT_EQ(IsRemotePath(path), isRemote) << testing::PrintToString(path);
    }
}
