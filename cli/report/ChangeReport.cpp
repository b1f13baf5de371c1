#include "cli/report/ChangeReport.h"

#include <nlohmann/json.hpp>
#include <ostream>
#include <string_view>

#include "cli/commands/Context.h"
#include "cli/report/JsonReport.h"
#include "cli/report/TaskReport.h"
#include "core/schedule/TimeText.h"
#include "core/task/SCVShchedulerTask.h"
#include "util/Utf8.h"

namespace {

std::string ChangeAsText(const char* change, const CSCVShchedulerTask& task) {
    return std::string_view(change) == kRunChange
               ? LaunchAsText(task)
               : std::string(change) + "  " + ToUtf8(task.m_strProjectPath);
}

}  // namespace

std::string LaunchAsText(const CSCVShchedulerTask& task) {
    return FormatSecond(task.m_tLastRunTime) + "  " + ToUtf8(task.m_strProjectPath) + "  " +
           ToUtf8(task.m_strLastRunResult);
}

std::string ChangeAsJson(const char* change, CSCVShchedulerTask& task, std::int64_t now) {
    Json json;
    json["change"] = change;
    json["task"] = TaskAsJson(ReportTask(task, now, 1), false);
    return json.dump();
}

void CChangeReport::AddGone(const char* change, CSCVShchedulerTask& task, std::int64_t now) {
    m_changes.push_back({change, nullptr, ChangeAsText(change, task), ChangeAsJson(change, task, now)});
}

void CChangeReport::Write(const Context& context, std::int64_t now, bool json) const {
    Json report = ReportHead(context.list, now);
    report["changes"] = Json::array();
    for (const Change& change : m_changes) {
        if (!json) {
            context.out << (change.task == nullptr ? change.text : ChangeAsText(change.change, *change.task))
                        << '\n';
            continue;
        }
        report["changes"].push_back(Json::parse(
            change.task == nullptr ? change.json : ChangeAsJson(change.change, *change.task, now)));
    }
    if (json) {
        context.out << DumpJson(report) << '\n';
    }
}
