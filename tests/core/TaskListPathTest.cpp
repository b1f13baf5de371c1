#include "core/TaskListPath.h"

#include <gmock/gmock.h>

#include <map>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

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

    std::map<std::wstring, std::string> files;
    std::vector<std::wstring> folders;
    bool copies = true;
};

const std::wstring kLocal = L"C:\\Local\\App\\Sched.ini";
const std::wstring kRoaming = L"C:\\Roaming\\Scrivane\\Sched.ini";
const std::wstring kBeside = L"C:\\ini\\Sched.ini";

class TaskListPath : public testing::Test {
protected:
    std::wstring Settle() { return SettleTaskListPath(m_names, m_places); }

    stTaskListNames m_names{L"C:\\HLP\\Sched.HLP", L"C:\\Roaming", L"C:\\Local", L"App", L"Sched"};
    CPlaces m_places;
};

TEST_F(TaskListPath, AnOldListMovesTheRoamingOneFirst) {
    EXPECT_EQ(Settle(), kLocal);
    EXPECT_THAT(m_places.files, IsEmpty());

    m_places.files = {{kBeside, "beside"}};
    EXPECT_EQ(Settle(), kLocal);
    EXPECT_THAT(m_places.files, ElementsAre(Pair(kLocal, "beside")));
    EXPECT_THAT(m_places.folders, ElementsAre(L"C:\\Local\\App\\", L"C:\\Local\\App\\"));

    m_places.files = {{kRoaming, "roaming"}, {kBeside, "beside"}};
    Settle();
    EXPECT_THAT(m_places.files, ElementsAre(Pair(kLocal, "roaming"), Pair(kBeside, "beside")));

    m_places.folders.clear();
    m_places.files = {{kLocal, "local"}, {kRoaming, "roaming"}, {kBeside, "beside"}};
    Settle();
    EXPECT_EQ(m_places.files.size(), 3u) << "a list in place is never replaced";
    EXPECT_EQ(m_places.files[kLocal], "local");
    EXPECT_THAT(m_places.folders, IsEmpty());
}

TEST_F(TaskListPath, AListThatCannotBeCopiedStays) {
    m_places.copies = false;
    m_places.files = {{kRoaming, "roaming"}, {kBeside, "beside"}};
    EXPECT_EQ(Settle(), kLocal);
    EXPECT_EQ(m_places.files.size(), 2u);
}

TEST_F(TaskListPath, UnknownFoldersAreDoneWithout) {
    m_names.localFolder.clear();
    m_places.files = {{kRoaming, "roaming"}};
    EXPECT_EQ(Settle(), kBeside);
    EXPECT_THAT(m_places.files, ElementsAre(Pair(kBeside, "roaming")));

    m_names.roamingFolder.clear();
    m_places.files = {{L"\\Scrivane\\Sched.ini", "stranger's"}};
    EXPECT_EQ(Settle(), kBeside);
    EXPECT_THAT(m_places.files, ElementsAre(Pair(L"\\Scrivane\\Sched.ini", "stranger's")));
}

}  // namespace
