#include "ui/EditorRules.h"

#include <gmock/gmock.h>

#include <map>
#include <set>

namespace {

using testing::UnorderedElementsAre;

class EditorRules : public testing::Test {
protected:
    CSCVShchedulerTask m_first, m_third;
    CSCVShchedulerTask* m_selected[3]{&m_first, nullptr, &m_third};
    stEditorMembers m_members;
};

// The controls' ids, each with the field that it writes.
const std::map<int, std::int32_t CSCVShchedulerTask::*> kFlags{
    {1012, &CSCVShchedulerTask::m_bDeleteUrls},       {1011, &CSCVShchedulerTask::m_bResetUrls},
    {1010, &CSCVShchedulerTask::m_bDeleteResults},    {1014, &CSCVShchedulerTask::m_bStart},
    {1052, &CSCVShchedulerTask::m_bRestart},          {1022, &CSCVShchedulerTask::m_bExportResults},
    {1016, &CSCVShchedulerTask::m_bApplyFilter},      {1028, &CSCVShchedulerTask::m_bExit},
    {1027, &CSCVShchedulerTask::m_bExportFailedUrls}, {1013, &CSCVShchedulerTask::m_bAddUrls},
    {1050, &CSCVShchedulerTask::m_bGenerateUrls},     {1015, &CSCVShchedulerTask::m_bImportInputValues},
    {1031, &CSCVShchedulerTask::m_bRepeatOnMon},      {1032, &CSCVShchedulerTask::m_bRepeatOnTue},
    {1033, &CSCVShchedulerTask::m_bRepeatOnWen},      {1034, &CSCVShchedulerTask::m_bRepeatOnThu},
    {1035, &CSCVShchedulerTask::m_bRepeatOnFri},      {1036, &CSCVShchedulerTask::m_bRepeatOnSat},
    {1037, &CSCVShchedulerTask::m_bRepeatOnSun},      {1053, &CSCVShchedulerTask::m_bRepeatOnMonthly},
    {1042, &CSCVShchedulerTask::m_bEnableEvery}};
const std::map<int, std::wstring CSCVShchedulerTask::*> kTexts{
    {1020, &CSCVShchedulerTask::m_strExportFile},      {1021, &CSCVShchedulerTask::m_strFailedUrlsFile},
    {1018, &CSCVShchedulerTask::m_strUrlsFile},        {1051, &CSCVShchedulerTask::m_strScriptFile},
    {1023, &CSCVShchedulerTask::m_strInputValuesFile}, {1024, &CSCVShchedulerTask::m_strInputElementName},
    {1025, &CSCVShchedulerTask::m_strInputElementId}};
const std::set<int> kRepainting{1031, 1032, 1033, 1034, 1035, 1036, 1037, 1053, 1042, 1039, 1041};

TEST_F(EditorRules, EachControlWritesItsFieldIntoEverySelectedTask) {
    for (int id = 1000; id < 1300; ++id) {
        CSCVShchedulerTask* const tasks[]{&m_first, nullptr, &m_third};
        stEditorMembers before = EditorMembersOf(&m_third, 0);
        m_members = before;
        for (const stFlagControl& control : kFlagControls) {
            m_members.*control.member = 1 - m_members.*control.member;
        }
        for (const stTextControl& control : kTextControls) {
            m_members.*control.member += std::to_wstring(id);
        }
        m_members.m_bExportIntoNewFile = 1;
        m_members.m_nEveryValue = id;
        m_members.m_nEveryUnit = id;
        EXPECT_EQ(ApplyEditorChange(id, m_members, tasks), kRepainting.contains(id)) << id;

        for (const CSCVShchedulerTask* task : {&m_first, &m_third}) {
            const stEditorMembers after = EditorMembersOf(task, 0);
            for (const stFlagControl& control : kFlagControls) {
                const bool written = after.*control.member != before.*control.member;
                EXPECT_EQ(written, control.id == id) << id << " and " << control.id;
            }
            for (const stTextControl& control : kTextControls) {
                const bool written = after.*control.member != before.*control.member;
                const bool exports = control.id == 1020 && (id == 1019 || id == 1022);
                EXPECT_EQ(written, control.id == id || exports) << id << " and " << control.id;
            }
            EXPECT_EQ(after.m_nEveryValue == id, id == 1039 || before.m_nEveryValue == id);
            EXPECT_EQ(after.m_nEveryUnit == id, id == 1041 || before.m_nEveryUnit == id);
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
    m_members.m_bExportResults = 1;
    for (const int id : {1019, 1022}) {
        m_first.m_strExportFile = L"old.csv";
        m_members.m_bExportIntoNewFile = 0;
        EXPECT_FALSE(ApplyEditorChange(id, m_members, m_selected));
        EXPECT_EQ(m_first.m_strExportFile, L"") << id;
        EXPECT_EQ(m_third.m_bExportResults, id == 1022 ? 1 : 0);
        m_members.m_bExportIntoNewFile = 1;
        ApplyEditorChange(id, m_members, m_selected);
        EXPECT_EQ(m_third.m_strExportFile, L"out.csv") << id;
    }
}

TEST_F(EditorRules, TheStartDateKeepsTheSecondsAndTheTimeClearsThem) {
    const auto start = [](int day, int hour, int minute, int second) {
        return FromLocalTime(2024, 3, day, hour, minute, second);
    };
    m_first.m_tStartTime = start(5, 8, 15, 42);
    m_third.m_tStartTime = start(7, 23, 59, 59);
    ApplyStartDate({2024, 3, 6, 0, 1, 2, 3}, m_selected);
    EXPECT_EQ(m_first.m_tStartTime, start(6, 8, 15, 42));
    EXPECT_EQ(m_third.m_tStartTime, start(6, 23, 59, 59));

    m_third.m_tStartTime = start(7, 23, 59, 59);
    ApplyStartTime({2030, 1, 1, 0, 10, 30, 33}, m_selected);
    EXPECT_EQ(m_first.m_tStartTime, start(6, 10, 30, 0));
    EXPECT_EQ(m_third.m_tStartTime, start(7, 10, 30, 0));

    ApplyStartNow(start(9, 4, 5, 6), m_selected);
    EXPECT_EQ(m_first.m_tStartTime, start(9, 4, 5, 0));
    EXPECT_EQ(m_third.m_tStartTime, start(9, 4, 5, 0));

    ApplyUntilTime({2024, 3, 1, 0, 18, 20, 59}, m_selected);
    EXPECT_EQ(m_first.m_tUntilTime, start(1, 18, 20, 59));
    EXPECT_EQ(m_third.m_tUntilTime, start(1, 18, 20, 59));
}

TEST_F(EditorRules, AStartThatCannotBeEndsTheChangeThere) {
    const std::int64_t good = FromLocalTime(2024, 3, 5, 8, 15, 42);
    CSCVShchedulerTask unreadable;
    unreadable.m_tStartTime = INT64_MAX;  // has no local time
    CSCVShchedulerTask* const tasks[]{&m_first, &unreadable, &m_third};
    const auto change = [&](auto apply, const LocalTime& picked) {
        m_first.m_tStartTime = m_third.m_tStartTime = good;
        EXPECT_THROW(apply(picked, SelectedTasks(tasks)), std::invalid_argument);
        EXPECT_EQ(unreadable.m_tStartTime, INT64_MAX);
        EXPECT_EQ(m_third.m_tStartTime, good);
        return m_first.m_tStartTime - good;
    };
    EXPECT_EQ(change(ApplyStartDate, {2024, 3, 6, 0, 0, 0, 0}), 86400) << "the one before is changed";
    EXPECT_EQ(change(ApplyStartTime, {2024, 3, 5, 0, 8, 16, 0}), 18);
    for (const LocalTime& date :
         {LocalTime{1899, 12, 31}, {2024, 0, 1}, {2024, 13, 1}, {2024, 1, 0}, {2024, 1, 32}}) {
        EXPECT_EQ(change(ApplyStartDate, date), 0) << date.year << ' ' << date.month << ' ' << date.day;
    }
    for (const auto& [hour, minute] : {std::pair{24, 0}, {-1, 0}, {0, 60}, {0, -1}}) {
        EXPECT_EQ(change(ApplyStartTime, {2024, 1, 1, 0, hour, minute, 0}), 0) << hour << ':' << minute;
    }
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
    EXPECT_THAT(enabled(false), testing::IsEmpty());
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
