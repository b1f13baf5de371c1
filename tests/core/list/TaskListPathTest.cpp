#include "core/list/TaskListPath.h"

#include <gtest/gtest.h>

#include <map>

namespace {

using Files = std::map<std::wstring, std::string>;

struct Places final : ITaskListPlaces {
    [[nodiscard]] bool Exists(const std::wstring& path) override { return files.contains(path); }
    void CreateFolder(const std::wstring& path) override { folder = path; }
    [[nodiscard]] bool Copy(const std::wstring& from, const std::wstring& to) override {
        return files.at(from) != "no copy" && files.insert_or_assign(to, files.at(from)).second;
    }
    void Delete(const std::wstring& path) override { files.erase(path); }

    Files files;
    std::wstring folder;
};

const std::wstring kLocal = L"L:\\App\\Sched.ini";
const std::wstring kRoaming = L"R:\\Scrivane\\Sched.ini";
const std::wstring kBeside = L"C:\\ini\\Sched.ini";

TEST(TaskListPath, AnOldListMovesTheRoamingOneFirst) {
    const struct {
        Files before, after;
        const wchar_t* localFolder = L"L:";
    } cases[] = {
        {{{kBeside, "b"}}, {{kLocal, "b"}}},
        {{{kRoaming, "r"}, {kBeside, "b"}}, {{kLocal, "r"}, {kBeside, "b"}}},
        {{{kLocal, "l"}, {kRoaming, "r"}}, {{kLocal, "l"}, {kRoaming, "r"}}},  // is never replaced
        {{{kRoaming, "no copy"}}, {{kRoaming, "no copy"}}},
        {{{kRoaming, "r"}}, {{kBeside, "r"}}, L""},
    };
    for (const auto& [before, after, localFolder] : cases) {
        Places places;
        places.files = before;
        const std::wstring path = *localFolder == 0 ? kBeside : kLocal;
        EXPECT_EQ(SettleTaskListPath({L"C:\\HLP\\Sched.HLP", L"R:", localFolder, L"App", L"Sched"}, places),
                  path);
        EXPECT_EQ(places.files, after);
        EXPECT_EQ(places.folder, before.contains(path) ? L"" : path.substr(0, path.size() - 9));
    }
}

}  // namespace
