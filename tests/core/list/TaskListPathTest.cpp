#include "core/list/TaskListPath.h"

#include <gtest/gtest.h>

#include <map>

#include "tests/support/FakeFileSystem.h"

namespace {

using Files = std::map<std::wstring, std::string>;

const std::wstring kLocal = L"L:\\App\\Sched.ini";
const std::wstring kRoaming = L"R:\\Scrivane\\Sched.ini";
const std::wstring kBeside = L"C:\\ini\\Sched.ini";

TEST(TaskListPath, AnOldListMovesTheRoamingOneFirst) {
    const struct {
        const char* label;
        Files before, after;
        const wchar_t* localFolder = L"L:";
        bool isCopyFailing = false;
    } cases[] = {
        {"beside the program", {{kBeside, "b"}}, {{kLocal, "b"}}},
        {"both", {{kRoaming, "r"}, {kBeside, "b"}}, {{kLocal, "r"}, {kBeside, "b"}}},
        {"a list is never replaced", {{kLocal, "l"}, {kRoaming, "r"}}, {{kLocal, "l"}, {kRoaming, "r"}}},
        {"no copy", {{kRoaming, "r"}}, {{kRoaming, "r"}}, L"L:", true},
        {"no local folder", {{kRoaming, "r"}}, {{kBeside, "r"}}, L""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.label);
        CFakeFileSystem files;
        for (const auto& [path, bytes] : c.before) {
            files.Put(path, bytes);
        }
        files.SetCapacity(c.isCopyFailing ? 0 : CFakeFileSystem::kForever);
        const std::wstring path = *c.localFolder == 0 ? kBeside : kLocal;
        EXPECT_EQ(SettleTaskListPath({L"C:\\HLP\\Sched.HLP", L"R:", c.localFolder, L"App", L"Sched"}, files),
                  path);
        EXPECT_EQ(files.FileCount(), c.after.size());
        for (const auto& [after, bytes] : c.after) {
            EXPECT_EQ(files.Bytes(after), bytes);
        }
        EXPECT_EQ(files.HasFolder(path.substr(0, path.size() - std::size("Sched.ini") + 1)),
                  !c.before.contains(path));
    }
}

}  // namespace
