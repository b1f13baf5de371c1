#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "cli/report/JsonReport.h"
#include "cli/report/TextReport.h"
#include "core/platform/LocalTime.h"
#include "core/task/SCVShchedulerTaskArray.h"

namespace {

class Reports : public testing::Test {
protected:
    Reports() {
        tasks.AddTask(L"C:\\p\\a.scvpr", now);
        CSCVShchedulerTask& first = *tasks[0];
        first.m_strIniSection = L"SCVShchedulerTask1";
        first.m_bDeleteUrls = first.m_bStart = 1;
        first.m_bRepeatOnMon = first.m_bRepeatOnWen = 1;
        first.m_tStartTime = first.m_tLastRunTime = now - 3600;
        first.m_strLastRunResult = L"Failure: File does not exist";
        tasks.AddTask(L"C:\\" + std::wstring(120, L'\u4fa1') + L".scvpr", now);
        tasks[1]->m_bEnable = 0;
    }

    std::vector<CSCVShchedulerTask*> All() { return {tasks[0], tasks[1]}; }

    const std::int64_t now = FromLocalTime(2024, 6, 3, 10, 0, 0);  // a Monday
    CSCVShchedulerTaskArray tasks;
};

TEST_F(Reports, TableFitsItsWidthAndLosesNothing) {
    const std::string text = TasksAsText(ReportTasks(All(), now, 1), 80);
    EXPECT_NE(text.find("yes C:\\p\\a.scvpr"), std::string::npos) << text;
    EXPECT_NE(text.find("2024-06-03 09:00  2024-06-05 09:00\n"), std::string::npos) << text;
    EXPECT_NE(text.find("  on Mon and Wen at 09:00\n"), std::string::npos) << text;
    std::size_t ideographs = 0;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        std::size_t columns = 0;
        for (const char c : line) {
            const auto byte = static_cast<unsigned char>(c);
            columns += byte < 0x80 ? 1U : byte >= 0xC0 ? 2U : 0U;
            ideographs += byte >= 0xC0 ? 1U : 0U;
        }
        EXPECT_LE(columns, 80U) << line;
    }
    EXPECT_EQ(ideographs, 120U);
    tasks[0]->m_tLastRunTime = std::int64_t{1} << 60;
    EXPECT_NE(TasksAsText(ReportTasks(All(), now, 1), 80).find("cannot be computed"), std::string::npos);
}

TEST_F(Reports, JsonHasEveryFieldAndRunsWhenAsked) {
    const std::vector<TaskReport> reports = ReportTasks(All(), now, 2);
    auto expected = nlohmann::json::parse(R"({
        "section": "SCVShchedulerTask1", "enabled": true, "project": "C:\\p\\a.scvpr",
        "commandLine": "\"C:\\p\\a.scvpr\" -dt -s", "lastRunResult": "Failure: File does not exist",
        "commands": {"delete-urls": true, "start-project": true},
        "schedule": "on Mon and Wen at 09:00", "startTimeLocal": "2024-06-03T09:00:00", "untilTimeLocal": "2024-06-03T23:59:59",
        "lastRunTimeLocal": "2024-06-03T09:00:00", "nextRunLocal": "2024-06-05T09:00:00",
        "runsLocal": ["2024-06-05T09:00:00", "2024-06-10T09:00:00"],
        "repeat": {"days": ["Mon", "Wen"], "weekdays": ["mon", "wed"], "monthly": false,
                   "every": {"enabled": false, "value": 1, "unit": 1, "unitName": "hours"}}})");
    const std::int64_t next = FromLocalTime(2024, 6, 5, 9, 0, 0);
    expected.update({{"startTime", now - 3600},
                     {"untilTime", tasks[0]->m_tUntilTime},
                     {"lastRunTime", now - 3600},
                     {"nextRun", next},
                     {"runs", {next, FromLocalTime(2024, 6, 10, 9, 0, 0)}}});

    const auto json = nlohmann::json::parse(TasksAsJson(L"C:\\x\\l.ini", now, reports, true));
    EXPECT_EQ(json["tasks"][0], expected);
    EXPECT_EQ(json["tasks"][1]["nextRun"], 0);
}

}  // namespace
