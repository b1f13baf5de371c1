#include "util/Path.h"

#include <gtest/gtest.h>

TEST(Path, PartsOfAPath) {
    const struct {
        const wchar_t* path;
        const wchar_t* name;
        const wchar_t* folder;
        const wchar_t* folderNoSlash;
        const wchar_t* extension;
        const wchar_t* stripped;
    } cases[] = {
        {L"", L"", L"", L"", L"", L""},
        {L"report.scvpr", L"report.scvpr", L"", L"", L"scvpr", L"report"},
        {L"report", L"report", L"", L"", L"", L"report"},
        {L"C:\\p\\task.SCVpr", L"task.SCVpr", L"C:\\p\\", L"C:\\p", L"SCVpr", L"task"},
        {L"C:\\p\\task", L"task", L"C:\\p\\", L"C:\\p", L"", L"C:\\p\\task"},
        {L"C:\\dir.v2\\file", L"file", L"C:\\dir.v2\\", L"C:\\dir.v2", L"", L"C:\\dir.v2\\file"},
        {L"C:\\a.b.c", L"a.b.c", L"C:\\", L"C:", L"c", L"a.b"},
        {L"C:\\a\\\\\\", L"", L"C:\\a\\\\\\", L"C:\\a", L"", L"C:\\a\\\\\\"},
        {L"C:\\a.", L"a.", L"C:\\", L"C:", L"", L"a"},
        {L"C:\\.x", L".x", L"C:\\", L"C:", L"x", L""},
        {L"a/b.scvpr", L"a/b.scvpr", L"", L"", L"scvpr", L"a/b"},
        {L"a.d/b", L"a.d/b", L"", L"", L"", L"a"},
        {L"C:\\x\\page.php/y", L"page.php/y", L"C:\\x\\", L"C:\\x", L"php", L"page"},
        {L"C:/d.x\\a/b.c", L"a/b.c", L"C:/d.x\\", L"C:/d.x", L"c", L"a/b"},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(testing::PrintToString(each.path));
        EXPECT_EQ(GetFileName(each.path), each.name);
        EXPECT_EQ(GetFolderPath(each.path), each.folder);
        EXPECT_EQ(GetFolderPathNoSlash(each.path), each.folderNoSlash);
        EXPECT_EQ(GetFileExtension(each.path), each.extension);
        EXPECT_EQ(StripFileExtension(each.path), each.stripped);
    }
}
