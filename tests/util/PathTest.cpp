#include "util/Path.h"

#include <gtest/gtest.h>

TEST(Path, PartsOfAPath) {
    // A path, its name, its folder with and without a backslash, its extension and what is left without it.
    const std::vector<std::wstring> cases[] = {
        {L"C:\\p\\task.SCVpr", L"task.SCVpr", L"C:\\p\\", L"C:\\p", L"SCVpr", L"task"},
        {L"C:\\dir.v2\\file", L"file", L"C:\\dir.v2\\", L"C:\\dir.v2", L"", L"C:\\dir.v2\\file"},
        {L"C:\\a\\\\\\", L"", L"C:\\a\\\\\\", L"C:\\a", L"", L"C:\\a\\\\\\"},
        {L"C:\\x\\page.php/y", L"page.php/y", L"C:\\x\\", L"C:\\x", L"php", L"page"},
    };
    for (const auto& parts : cases) {
        const std::wstring& path = parts[0];
        EXPECT_EQ((std::vector{path, GetFileName(path), GetFolderPath(path), GetFolderPathNoSlash(path),
                               GetFileExtension(path), StripFileExtension(path)}),
                  parts);
    }
}
