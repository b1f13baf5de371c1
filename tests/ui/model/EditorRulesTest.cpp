#include "ui/model/EditorRules.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <stdexcept>

namespace {

using T = CSCVShchedulerTask;

// Each control's id with the field that it writes.
const std::map<int, std::int32_t T::*> kFlags{
    {1012, &T::m_bDeleteUrls},       {1011, &T::m_bResetUrls},
    {1010, &T::m_bDeleteResults},    {1014, &T::m_bStart},
    {1052, &T::m_bRestart},          {1022, &T::m_bExportResults},
    {1016, &T::m_bApplyFilter},      {1028, &T::m_bExit},
    {1027, &T::m_bExportFailedUrls}, {1013, &T::m_bAddUrls},
    {1050, &T::m_bGenerateUrls},     {1015, &T::m_bImportInputValues},
    {1031, &T::m_bRepeatOnMon},      {1032, &T::m_bRepeatOnTue},
    {1033, &T::m_bRepeatOnWen},      {1034, &T::m_bRepeatOnThu},
    {1035, &T::m_bRepeatOnFri},      {1036, &T::m_bRepeatOnSat},
    {1037, &T::m_bRepeatOnSun},      {1053, &T::m_bRepeatOnMonthly},
    {1042, &T::m_bEnableEvery},      {1039, &T::m_nEveryValue},
    {1041, &T::m_nEveryUnit}};
const std::map<int, std::wstring T::*> kTexts{
    {1020, &T::m_strExportFile},    {1021, &T::m_strFailedUrlsFile},  {1018, &T::m_strUrlsFile},
    {1051, &T::m_strScriptFile},    {1023, &T::m_strInputValuesFile}, {1024, &T::m_strInputElementName},
    {1025, &T::m_strInputElementId}};
const std::set<int> kRepainting{1031, 1032, 1033, 1034, 1035, 1036, 1037, 1053, 1042, 1039, 1041};

TEST(EditorRules, EachControlWritesIntoSelectedTasks) {
    T shown;
    for (const auto& [id, field] : kFlags) {
        shown.*field = id;
    }
    for (const auto& [id, field] : kTexts) {
        shown.*field = std::to_wstring(id);
    }
    const stEditorMembers members = EditorMembersOf(&shown, 0);
    for (int id = 1000; id < 1300; ++id) {
        const T before;
        T first;
        T third;
        T* const selected[]{&first, nullptr, &third};
        EXPECT_EQ(ApplyEditorChange(id, members, selected), kRepainting.contains(id)) << id;
        for (const T* task : {&first, &third}) {
            for (const auto& [own, field] : kFlags) {
                EXPECT_EQ(task->*field, own == id ? id : before.*field) << id << ' ' << own;
            }
            for (const auto& [own, field] : kTexts) {
                const bool writes = own == id || (own == 1020 && (id == 1019 || id == 1022));
                EXPECT_EQ(task->*field, writes ? std::to_wstring(own) : L"") << id;
            }
        }
    }
    stEditorMembers unticked = members;
    unticked.m_bExportIntoNewFile = 0;
    T* const selected[]{&shown};
    ApplyEditorChange(1022, unticked, selected);
    EXPECT_EQ(shown.m_strExportFile, L"") << "a file's name is its box's only memory";
}

TEST(EditorRules, AnImpossibleStartCanBeReplaced) {
    T task;
    task.m_strProjectPath = L"C:\\a.scvpr";
    task.m_tStartTime = INT64_MIN;
    T* const selected[]{&task};
    ApplyStartDate({2026, 6, 8, 1, 0, 0, 0}, selected);
    const std::int64_t start = FromLocalTime(2026, 6, 8, 0, 0, 0);
    EXPECT_EQ(task.m_tStartTime, start) << "midnight, as the picker shows";
    EXPECT_THROW(ApplyStartDate({1899, 1, 1, 0, 0, 0, 0}, selected), std::invalid_argument);
    EXPECT_EQ(task.m_tStartTime, start);
}

TEST(EditorRules, PickersChangeTheirHalfOfTheStart) {
    T first;
    T second;
    first.m_tStartTime = FromLocalTime(2024, 3, 5, 8, 15, 42);
    second.m_tStartTime = FromLocalTime(2024, 3, 5, 9, 15, 42);
    T* const selected[]{&first, nullptr, &second};
    ApplyStartDate({2024, 3, 6, 0, 1, 1, 1}, selected);
    EXPECT_EQ(first.m_tStartTime, FromLocalTime(2024, 3, 6, 8, 15, 42)) << "the date keeps the seconds";
    EXPECT_EQ(second.m_tStartTime, FromLocalTime(2024, 3, 6, 9, 15, 42)) << "and each task's own time";
    ApplyStartTime({2001, 1, 1, 0, 10, 30, 59}, selected);
    EXPECT_EQ(first.m_tStartTime, FromLocalTime(2024, 3, 6, 10, 30, 0)) << "the time clears them";
    ApplyUntilTime({2024, 3, 6, 0, 18, 45, 7}, selected);
    EXPECT_EQ(second.m_tUntilTime, FromLocalTime(2024, 3, 6, 18, 45, 7)) << "as picked";
    ApplyStartNow(FromLocalTime(2026, 2, 25, 10, 0, 59), selected);
    EXPECT_EQ(second.m_tStartTime, FromLocalTime(2026, 2, 25, 10, 0, 0)) << "without seconds";
}

TEST(EditorRules, BoxesEnableTheirDependants) {
    const struct {
        std::int32_t stEditorMembers::*box;
        std::set<int> dependants;
    } cases[] = {{&stEditorMembers::m_bExportIntoNewFile, {1020, 1243}},
                 {&stEditorMembers::m_bExportFailedUrls, {1021, 1244}},
                 {&stEditorMembers::m_bAddUrls, {1018, 1242}},
                 {&stEditorMembers::m_bGenerateUrls, {1051, 1247}},
                 {&stEditorMembers::m_bImportInputValues, {1023, 1024, 1025, 1246}},
                 {&stEditorMembers::m_bEnableEvery, {1039, 1040, 1041, 1044, 1038}}};
    const auto enabled = [](const stEditorMembers& members, bool hasSelection) {
        std::set<int> ids;
        for (const stControlState& state : EditorStates(members, hasSelection)) {
            if (state.isEnabled) {
                ids.insert(state.id);
            }
        }
        return ids;
    };
    for (const auto& item : cases) {
        stEditorMembers members;
        members.*item.box = 1;
        EXPECT_EQ(enabled(members, false), item.dependants) << *item.dependants.begin();
    }
    EXPECT_EQ(enabled({}, true), (std::set<int>{1251, 1026, 1043, 1045})) << "what acts on projects";
}

}  // namespace
