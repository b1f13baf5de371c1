#include "core/TaskListPath.h"

#include <gmock/gmock.h>

#include <map>
#include <vector>

namespace {

using Files = std::map<std::wstring, std::string>;

class CPlaces final : public ITaskListPlaces {
public:
    [[nodiscard]] bool Exists(const std::wstring& path) override { return files.contains(path); }
    void CreateFolder(const std::wstring& folder) override { folders.push_back(folder); }
    [[nodiscard]] bool Copy(const std::wstring& from, const std::wstring& to) override {
        if (copies) {
            files[to] = files.at(from);
        }
        return copies;
    }
    void Delete(const std::wstring& path) override { files.erase(path); }

    Files files;
    std::vector<std::wstring> folders;
    bool copies = true;
};

const std::wstring kLocal = L"C:\\Local\\App\\Sched.ini";
const std::wstring kRoaming = L"C:\\Roaming\\Scrivane\\Sched.ini";
const std::wstring kBeside = L"C:\\ini\\Sched.ini";
const std::wstring kStranger = L"\\Scrivane\\Sched.ini";

TEST(TaskListPath, AnOldListMovesTheRoamingOneFirst) {
    const struct {
        const wchar_t* roamingFolder;
        const wchar_t* localFolder;
        bool copies;
        Files before;
        std::wstring path;
        Files after;
    } cases[] = {
        {L"C:\\Roaming", L"C:\\Local", true, {{kBeside, "b"}}, kLocal, {{kLocal, "b"}}},
        {L"C:\\Roaming",
         L"C:\\Local",
         true,
         {{kRoaming, "r"}, {kBeside, "b"}},
         kLocal,
         {{kLocal, "r"}, {kBeside, "b"}}},
        {L"C:\\Roaming", L"C:\\Local", false, {{kRoaming, "r"}}, kLocal, {{kRoaming, "r"}}},
        {L"C:\\Roaming", L"", true, {{kRoaming, "r"}}, kBeside, {{kBeside, "r"}}},
        {L"", L"", true, {{kStranger, "s"}}, kBeside, {{kStranger, "s"}}},
        // A list in place is never replaced.
        {L"C:\\Roaming",
         L"C:\\Local",
         true,
         {{kLocal, "l"}, {kRoaming, "r"}},
         kLocal,
         {{kLocal, "l"}, {kRoaming, "r"}}},
    };
    for (const auto& c : cases) {
        CPlaces places;
        places.files = c.before;
        places.copies = c.copies;
        EXPECT_EQ(SettleTaskListPath(
                      {L"C:\\HLP\\Sched.HLP", c.roamingFolder, c.localFolder, L"App", L"Sched"}, places),
                  c.path);
        EXPECT_EQ(places.files, c.after);
        EXPECT_EQ(places.folders.empty(), c.before.contains(c.path))
            << "a folder is made for a new list only";
        EXPECT_TRUE(c.path != kLocal || places.folders.empty() || places.folders[0] == L"C:\\Local\\App\\");
    }
}

}  // namespace
