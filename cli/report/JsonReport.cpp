#include "cli/report/JsonReport.h"

#include <nlohmann/json.hpp>

#include "core/task/SCVShchedulerTask.h"
#include "core/task/TaskDays.h"
#include "util/Utf8.h"

namespace {

constexpr int kIndent = 2;

}  // namespace

Json DaysAsJson(const CSCVShchedulerTask& task) {
    Json names = Json::array();
    for (const TaskDay& day : kTaskDays) {
        if (task.*day.flag != 0) {
            names.push_back(day.name);
        }
    }
    return names;
}

Json TaskAsJson(const TaskReport& report, bool runs) {
    const CSCVShchedulerTask& task = *report.task;
    Json json;
    json["section"] = ToUtf8(task.m_strIniSection);
    json["enabled"] = task.m_bEnable != 0;
    json["project"] = ToUtf8(task.m_strProjectPath);
    json["commandLine"] = ToUtf8(task.BuildCommandLine());
    json["startTime"] = task.m_tStartTime;
    json["untilTime"] = task.m_tUntilTime;
    json["lastRunTime"] = task.m_tLastRunTime;
    json["lastRunResult"] = ToUtf8(task.m_strLastRunResult);
    json["repeat"]["days"] = DaysAsJson(task);
    json["repeat"]["monthly"] = task.m_bRepeatOnMonthly != 0;
    json["repeat"]["every"]["enabled"] = task.m_bEnableEvery != 0;
    json["repeat"]["every"]["value"] = task.m_nEveryValue;
    json["repeat"]["every"]["unit"] = task.m_nEveryUnit;
    json["nextRun"] = report.NextRun();
    if (runs) {
        json["runs"] = report.runs;
    }
    return json;
}

Json ReportHead(const std::wstring& list, std::int64_t now) {
    Json json;
    json["list"] = ToUtf8(list);
    json["now"] = now;
    return json;
}

std::string DumpJson(const Json& json) {
    return json.dump(kIndent);
}

std::string TasksAsJson(const std::wstring& list, std::int64_t now, const std::vector<TaskReport>& reports,
                        bool runs) {
    Json json = ReportHead(list, now);
    json["tasks"] = Json::array();
    for (const TaskReport& report : reports) {
        json["tasks"].push_back(TaskAsJson(report, runs));
    }
    return DumpJson(json);
}

std::string FindingsAsJson(const std::wstring& list, std::int64_t now, const std::vector<Finding>& findings) {
    Json json = ReportHead(list, now);
    json["findings"] = Json::array();
    for (const Finding& finding : findings) {
        json["findings"].push_back({{"project", ToUtf8(finding.project)},
                                    {"section", ToUtf8(finding.section)},
                                    {"message", finding.message}});
    }
    return DumpJson(json);
}
