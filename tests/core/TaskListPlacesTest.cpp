#include <gtest/gtest.h>

#include "core/TaskListPlaces.h"
#include "core/WindowsFileSystem.h"
#include "tests/support/TemporaryFolder.h"
#include "util/FileTests.h"

TEST(TaskListPlaces, OldListIsMovedWholeOrNotAtAll) {
    const TemporaryFolder folder;
    const std::wstring old = folder.File(L"old.ini", "[x]\r\na=1\r\n");
    CWindowsFileSystem files;
    CTaskListPlaces places(files);
    places.CreateFolder(folder.Path(L"new"));
    const std::wstring path = folder.Path(L"new\\list.ini");
    EXPECT_FALSE(places.Exists(path));
    EXPECT_FALSE(places.Copy(folder.Path(L"missing.ini"), path));
    EXPECT_FALSE(places.Copy(old, folder.Path(L"none\\list.ini")));
    EXPECT_TRUE(places.Copy(old, path));
    EXPECT_EQ(BytesOf(path), "[x]\r\na=1\r\n");
    places.Delete(old);
    EXPECT_FALSE(places.Exists(old));
    EXPECT_EQ(FileExists(folder.Path(L"new\\*.tmp")), 0);
}
