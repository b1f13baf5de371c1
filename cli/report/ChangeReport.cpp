#include "cli/report/ChangeReport.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <string_view>

#include "cli/report/JsonReport.h"
#include "cli/report/TaskReport.h"
#include "cli/report/Text.h"
#include "core/launch/LaunchResult.h"
#include "core/schedule/TimeText.h"
#include "core/task/SCVShchedulerTask.h"
#include "util/Path.h"

std::string LaunchAsText(const CSCVShchedulerTask& task) {
    const std::wstring& project = task.m_strProjectPath;
    const std::string line =
        Join(FormatSecond(task.m_tLastRunTime), "  ", project, "  ", task.m_strLastRunResult);
    return task.m_strLastRunResult == kNoProgramFound
               ? Join(line, " (no program is registered for .", GetFileExtension(project), ")")
               : line;
}

Json ChangeAsJson(std::string_view change, const CSCVShchedulerTask& task, std::int64_t now) {
    Json json;
    json["change"] = change;
    json["task"] = TaskAsJson(ReportTask(task, now, 1), false);
    return json;
}

void CChangeReport::AddRemoved(CSCVShchedulerTask& task, std::int64_t now) {
    constexpr std::string_view kRemoved = "removed";
    m_changes.push_back({kRemoved, nullptr, task.m_strProjectPath,
                         std::make_shared<const Json>(ChangeAsJson(kRemoved, task, now))});
}

bool CChangeReport::HasLaunches() const {
    return std::any_of(m_changes.begin(), m_changes.end(),
                       [](const Change& change) { return change.name == kLaunched; });
}

std::vector<CSCVShchedulerTask*> CChangeReport::ChangedTasks() const {
    std::vector<CSCVShchedulerTask*> tasks;
    for (const Change& change : m_changes) {
        if (change.task != nullptr) {
            tasks.push_back(change.task);
        }
    }
    return tasks;
}

Json CChangeReport::AsJson(const std::wstring& list, std::int64_t now, bool isTry) const {
    Json report = ReportHead(list, now);
    report["dryRun"] = isTry;
    report["changes"] = Json::array();
    for (const Change& change : m_changes) {
        report["changes"].push_back(change.json ? *change.json
                                                : ChangeAsJson(change.name, *change.task, now));
    }
    report["unchanged"] = Json::array();
    for (const CSCVShchedulerTask* task : m_unchanged) {
        report["unchanged"].push_back(task->m_strProjectPath);
    }
    return report;
}

std::string CChangeReport::Write(const std::wstring& list, std::int64_t now, bool json, bool isTry) const {
    if (json) {
        return DumpJson(AsJson(list, now, isTry)) + '\n';
    }
    std::string text;
    const char* const before = isTry ? "would be " : "";
    for (const Change& change : m_changes) {
        const std::wstring& project = change.task == nullptr ? change.project : change.task->m_strProjectPath;
        if (change.name == kLaunched && !isTry) {
            text += LaunchAsText(*change.task) + '\n';
            continue;
        }
        // Changes that make a schedule show it in words; the other ones do not affect it.
        const bool isMade = change.name == kAdded || change.name == kReplaced || change.name == kSet;
        text += Join(before, change.name, "  ", project, isMade ? "  " : "",
                     isMade ? ReportTask(*change.task, now, 0).schedule : std::wstring(), "\n");
    }
    for (const CSCVShchedulerTask* task : m_unchanged) {
        text += Join("unchanged  ", task->m_strProjectPath, "\n");
    }
    return text;
}
