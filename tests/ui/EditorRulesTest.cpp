#include "ui/EditorRules.h"

#include <gmock/gmock.h>

#include <map>
#include <set>

#include "core/LocalTime.h"

namespace {

using T = CSCVShchedulerTask;
using testing::UnorderedElementsAre;

class EditorRules : public testing::Test {
protected:
    T m_first, m_third;
    T* m_selected[3]{&m_first, nullptr, &m_third};
    stEditorMembers m_members;
};

// The controls' ids, each with the field that it writes.
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
    {1042, &T::m_bEnableEvery}};
const std::map<int, std::wstring T::*> kTexts{
    {1020, &T::m_strExportFile},    {1021, &T::m_strFailedUrlsFile},  {1018, &T::m_strUrlsFile},
    {1051, &T::m_strScriptFile},    {1023, &T::m_strInputValuesFile}, {1024, &T::m_strInputElementName},
    {1025, &T::m_strInputElementId}};
const std::set<int> kRepainting{1031, 1032, 1033, 1034, 1035, 1036, 1037, 1053, 1042, 1039, 1041};

TEST_F(EditorRules, EachControlWritesItsFieldIntoEverySelectedTask) {
    for (int id = 1000; id < 1300; ++id) {
        m_members = EditorMembersOf(&m_third, 0);
        for (const stFlagControl& control : kFlagControls) {
            m_members.*control.member = 1 - m_members.*control.member;
        }
        for (const stTextControl& control : kTextControls) {
            m_members.*control.member += std::to_wstring(id);
        }
        m_members.m_bExportIntoNewFile = 1;
        m_members.m_nEveryValue = m_members.m_nEveryUnit = id;
        const stEditorMembers before = EditorMembersOf(&m_third, 0);
        EXPECT_EQ(ApplyEditorChange(id, m_members, m_selected), kRepainting.contains(id)) << id;
        for (const T* task : {&m_first, &m_third}) {
            const stEditorMembers after = EditorMembersOf(task, 0);
            for (const stFlagControl& control : kFlagControls) {
                EXPECT_EQ(after.*control.member != before.*control.member, control.id == id)
                    << id << control.id;
            }
            for (const stTextControl& control : kTextControls) {
                const bool exports = control.id == 1020 && (id == 1019 || id == 1022);
                EXPECT_EQ(after.*control.member != before.*control.member, control.id == id || exports) << id;
            }
            EXPECT_EQ(after.m_nEveryValue == id, id == 1039);
            EXPECT_EQ(after.m_nEveryUnit == id, id == 1041);
        }
        if (const auto field = kFlags.find(id); field != kFlags.end()) {
            EXPECT_EQ(m_third.*field->second, 1) << id;
        }
        if (const auto field = kTexts.find(id); field != kTexts.end()) {
            EXPECT_TRUE((m_third.*field->second).ends_with(std::to_wstring(id))) << id;
        }
    }
    EXPECT_EQ(std::size(kFlagControls), kFlags.size());
    EXPECT_EQ(std::size(kTextControls), kTexts.size());
}

TEST_F(EditorRules, TheExportFilesNameIsItsBoxesOnlyMemory) {
    m_members.m_strExportFile = L"out.csv";
    for (const int id : {1019, 1022}) {
        for (const std::int32_t ticked : {1, 0}) {
            m_members.m_bExportIntoNewFile = ticked;
            ApplyEditorChange(id, m_members, m_selected);
            EXPECT_EQ(m_third.m_strExportFile, ticked != 0 ? L"out.csv" : L"") << id;
        }
    }
}

TEST_F(EditorRules, TheStartDateKeepsTheSecondsAndTheTimeClearsThem) {
    const auto start = [](int day, int hour, int minute, int second) {
        return FromLocalTime(2024, 3, day, hour, minute, second);
    };
    m_third.m_tStartTime = start(7, 23, 59, 59);
    ApplyStartDate({2024, 3, 6, 0, 1, 2, 3}, m_selected);
    EXPECT_EQ(m_third.m_tStartTime, start(6, 23, 59, 59));
    ApplyStartTime({2030, 1, 1, 0, 10, 30, 33}, m_selected);
    EXPECT_EQ(m_third.m_tStartTime, start(6, 10, 30, 0));
    ApplyStartNow(start(9, 4, 5, 6), m_selected);
    EXPECT_EQ(m_third.m_tStartTime, start(9, 4, 5, 0));
    ApplyUntilTime({2024, 3, 1, 0, 18, 20, 59}, m_selected);
    EXPECT_EQ(m_third.m_tUntilTime, start(1, 18, 20, 59));

    // A start that cannot be ends the change there.
    T unreadable;
    unreadable.m_tStartTime = INT64_MAX;
    T* const tasks[]{&m_first, &unreadable, &m_third};
    EXPECT_THROW(ApplyStartDate({2024, 3, 6, 0, 0, 0, 0}, tasks), std::invalid_argument);
    EXPECT_THROW(ApplyStartTime({2024, 1, 1, 0, 24, 0, 0}, m_selected), std::invalid_argument);
    EXPECT_EQ(m_first.m_tStartTime, start(6, 4, 5, 0)) << "the one before is changed";
    EXPECT_EQ(unreadable.m_tStartTime, INT64_MAX);
    EXPECT_EQ(m_third.m_tStartTime, start(9, 4, 5, 0));
}

TEST_F(EditorRules, DependantsFollowTheirBoxAndProjectButtonsTheSelection) {
    const auto enabled = [&](bool hasSelection) {
        std::vector<int> ids;
        for (const stControlState& state : EditorStates(m_members, hasSelection)) {
            if (state.isEnabled) {
                ids.push_back(state.id);
            }
        }
        return ids;
    };
    const auto enabledBy = [&](std::int32_t stEditorMembers::*box) {
        m_members = {};
        m_members.*box = 1;
        return enabled(false);
    };
    EXPECT_THAT(enabled(true), UnorderedElementsAre(1251, 1026, 1043, 1045));
    EXPECT_THAT(enabledBy(&stEditorMembers::m_bExportIntoNewFile), UnorderedElementsAre(1020, 1243));
    EXPECT_THAT(enabledBy(&stEditorMembers::m_bExportFailedUrls), UnorderedElementsAre(1021, 1244));
    EXPECT_THAT(enabledBy(&stEditorMembers::m_bAddUrls), UnorderedElementsAre(1018, 1242));
    EXPECT_THAT(enabledBy(&stEditorMembers::m_bGenerateUrls), UnorderedElementsAre(1051, 1247));
    EXPECT_THAT(enabledBy(&stEditorMembers::m_bImportInputValues),
                UnorderedElementsAre(1023, 1024, 1025, 1246));
    EXPECT_THAT(enabledBy(&stEditorMembers::m_bEnableEvery),
                UnorderedElementsAre(1039, 1040, 1041, 1044, 1038));
    EXPECT_EQ(EditorStates(m_members, false).size(), 21u) << "nothing else is ever disabled";
}

}  // namespace
