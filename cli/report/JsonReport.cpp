#include "cli/report/JsonReport.h"

#include <nlohmann/json.hpp>

#include "cli/report/TaskJson.h"
#include "core/schedule/TimeText.h"
#include "core/task/SCVShchedulerTask.h"
#include "core/task/TaskDays.h"

namespace {

constexpr int kIndent = 2;

// The name that --days has for the day.
std::string OptionName(const TaskDay& day) {
    std::string name = ToUtf8(day.name);
    if (name == "Wen") {
        return "wed";
    }
    name.front() = static_cast<char>(name.front() - 'A' + 'a');
    return name;
}

// As FormatSecond, with the T of ISO 8601; null when there is no such time.
Json LocalTimeAsJson(std::int64_t instant) {
    std::wstring text = FormatSecond(instant);
    if (text.size() != std::wstring_view(L"2024-03-31 02:30:00").size()) {
        return nullptr;
    }
    text[10] = L'T';
    return text;
}

}  // namespace

Json RepeatAsJson(const CSCVShchedulerTask& task) {
    Json json;
    json["days"] = Json::array();
    json["weekdays"] = Json::array();
    for (const TaskDay& day : kTaskDays) {
        if (task.*day.flag != 0) {
            json["days"].push_back(ToUtf8(day.name));
            json["weekdays"].push_back(OptionName(day));
        }
    }
    json["monthly"] = task.m_bRepeatOnMonthly != 0;
    json["every"]["enabled"] = task.m_bEnableEvery != 0;
    json["every"]["value"] = task.m_nEveryValue;
    json["every"]["unitName"] = task.m_nEveryUnit == 1 ? "hours" : "minutes";
    return json;
}

Json TaskAsJson(const TaskReport& report, bool runs) {
    const CSCVShchedulerTask& task = *report.task;
    Json json;
    json["section"] = task.m_strIniSection;
    json["enabled"] = task.m_bEnable != 0;
    json["project"] = task.m_strProjectPath;
    json["commandLine"] = task.BuildCommandLine();
    json["commands"] = CommandsAsJson(task);
    AddTime(json, "startTime", task.m_tStartTime);
    AddTime(json, "untilTime", task.m_tUntilTime);
    AddTime(json, "lastRunTime", task.m_tLastRunTime);
    json["lastRunResult"] = task.m_strLastRunResult;
    json["repeat"] = RepeatAsJson(task);
    json["repeat"]["every"]["unit"] = task.m_nEveryUnit;
    json["schedule"] = report.schedule;
    AddTime(json, "nextRun", report.NextRun());
    if (runs) {
        json["runs"] = report.runs;
        json["runsLocal"] = Json::array();
        for (const std::int64_t run : report.runs) {
            json["runsLocal"].push_back(LocalTimeAsJson(run));
        }
    }
    return json;
}

Json ReportHead(const std::wstring& list, std::int64_t now) {
    Json json;
    json["version"] = kJsonVersion;
    json["list"] = list;
    AddTime(json, "now", now);
    return json;
}

void AddTime(Json& json, const std::string& key, std::int64_t instant) {
    json[key] = instant;
    json[key + "Local"] = LocalTimeAsJson(instant);
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
        json["findings"].push_back(
            {{"project", finding.project}, {"section", finding.section}, {"message", finding.message}});
    }
    return DumpJson(json);
}
