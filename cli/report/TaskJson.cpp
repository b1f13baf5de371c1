#include "cli/report/TaskJson.h"

#include <nlohmann/json.hpp>
#include <string_view>
#include <vector>

#include "cli/report/JsonFields.h"
#include "cli/report/JsonReport.h"
#include "cli/report/Refusal.h"
#include "core/list/Storable.h"
#include "core/task/NewProject.h"
#include "core/task/SCVShchedulerTask.h"
#include "core/task/TaskDays.h"
#include "core/task/TaskSwitches.h"
#include "util/Utf8.h"

namespace {

using Task = CSCVShchedulerTask;

std::string TextOf(const std::wstring& text) {
    return ToUtf8(HalvedApostrophes(text));
}

// The commands that are on: true, or the text of those that have one.
Json ExportCommands(const Task& task) {
    Json json = Json::object();
    for (const TaskSwitch& command : kTaskSwitches) {
        if (!command.IsOn(task)) {
            continue;
        }
        if (command.text == nullptr || (task.*command.text).empty()) {
            json[command.name] = true;
        } else {
            json[command.name] = TextOf(task.*command.text);
        }
        if (command.hasElement) {
            json["element-name"] = TextOf(task.m_strInputElementName);
            json["element-id"] = TextOf(task.m_strInputElementId);
        }
    }
    return json;
}

void ImportCommand(const TaskSwitch& command, const CJsonFields& fields, Task& task) {
    const Json* field = fields.Find(command.name);
    if (field == nullptr || *field == false) {
        return;
    }
    const bool takesText = command.text != nullptr;
    const bool takesTrue = command.argument != TaskSwitch::Argument::Required;
    const bool hasText = field->is_string() && !field->get_ref<const std::string&>().empty();
    if (!(takesText && hasText) && !(takesTrue && *field == true)) {
        throw CRefusal(
            fields.Where(command.name) + " has to be " +
            (takesText ? takesTrue ? "true, false or a text" : "a file or false" : "true or false"));
    }
    command.SwitchOn(task, hasText ? FromUtf8(field->get_ref<const std::string&>()) : std::wstring());
}

void ImportCommands(const Json& json, const std::string& where, Task& task) {
    std::vector<std::string_view> known = {"element-name", "element-id"};
    for (const TaskSwitch& command : kTaskSwitches) {
        known.emplace_back(command.name);
    }
    const CJsonFields fields(json, where, known);
    for (const TaskSwitch& command : kTaskSwitches) {
        ImportCommand(command, fields, task);
    }
    const auto name = fields.Text("element-name");
    const auto id = fields.Text("element-id");
    if (task.m_bImportInputValues != 0 && name.value_or(L"").empty() && id.value_or(L"").empty()) {
        throw CRefusal(fields.Where("import-values") + " wants element-name or element-id");
    }
    if (task.m_bImportInputValues == 0 && (name || id)) {
        throw CRefusal(where + " names an input element without import-values");
    }
    task.m_strInputElementName = name.value_or(L"");
    task.m_strInputElementId = id.value_or(L"");
}

Json ExportRepeat(const Task& task) {
    Json json;
    json["days"] = DaysAsJson(task);
    json["monthly"] = task.m_bRepeatOnMonthly != 0;
    json["every"]["enabled"] = task.m_bEnableEvery != 0;
    json["every"]["value"] = task.m_nEveryValue;
    json["every"]["unit"] = task.m_nEveryUnit == 1 ? "hours" : "minutes";
    return json;
}

void ImportDays(const Json& days, const std::string& where, Task& task) {
    if (!days.is_array()) {
        throw CRefusal(where + " has to be an array of days");
    }
    for (const Json& name : days) {
        const TaskDay* day = name.is_string() ? FindTaskDay(name.get_ref<const std::string&>()) : nullptr;
        if (day == nullptr) {
            throw CRefusal(where + " holds " + name.dump() + ", which is none of " + TaskDayNames());
        }
        task.*day->flag = 1;
    }
}

void ImportEvery(const Json& json, const std::string& where, Task& task) {
    const CJsonFields fields(json, where, {"enabled", "value", "unit"});
    task.m_bEnableEvery = fields.Bool("enabled").value_or(true) ? 1 : 0;
    task.m_nEveryValue = fields.Number("value").value_or(task.m_nEveryValue);
    if (const auto unit = fields.Text("unit")) {
        if (*unit != L"hours" && *unit != L"minutes") {
            throw CRefusal(fields.Where("unit") + R"( has to be "hours" or "minutes")");
        }
        task.m_nEveryUnit = *unit == L"hours" ? 1 : 0;
    }
}

void ImportRepeat(const Json& json, const std::string& where, Task& task) {
    const CJsonFields fields(json, where, {"days", "monthly", "every"});
    if (const Json* days = fields.Find("days")) {
        ImportDays(*days, fields.Where("days"), task);
    }
    task.m_bRepeatOnMonthly = fields.Bool("monthly").value_or(false) ? 1 : 0;
    if (const Json* every = fields.Find("every")) {
        ImportEvery(*every, fields.Where("every"), task);
    }
}

CJsonFields FieldsOf(const Json& task, const std::string& where) {
    return {task,
            where,
            {"project", "enabled", "commands", "startTime", "repeat", "untilTime", "lastRunTime",
             "lastRunResult"}};
}

}  // namespace

Json ExportTask(const CSCVShchedulerTask& task) {
    // Only what the list would keep: a switch without its argument, say, is left out by every save.
    Task kept;
    kept.ParseCommandLine(task.BuildCommandLine());
    Json json;
    json["project"] = TextOf(kept.m_strProjectPath);
    json["enabled"] = task.m_bEnable != 0;
    json["commands"] = ExportCommands(kept);
    json["startTime"] = task.m_tStartTime;
    json["repeat"] = ExportRepeat(task);
    json["untilTime"] = task.m_tUntilTime;
    json["lastRunTime"] = task.m_tLastRunTime;
    json["lastRunResult"] = TextOf(task.m_strLastRunResult);
    return json;
}

std::wstring ImportedProject(const Json& json, const std::string& where) {
    std::wstring project = FieldsOf(json, where).Text("project").value_or(L"");
    if (project.empty()) {
        throw CRefusal(where + " names no project");
    }
    return project;
}

void ImportTask(const Json& json, const std::string& where, CSCVShchedulerTask& task) {
    const CJsonFields fields = FieldsOf(json, where);
    task.m_bEnable = fields.Bool("enabled").value_or(true) ? 1 : 0;
    if (const Json* commands = fields.Find("commands")) {
        ImportCommands(*commands, fields.Where("commands"), task);
    } else {
        SetNewProjectDefaults(task);
    }
    if (const Json* repeat = fields.Find("repeat")) {
        ImportRepeat(*repeat, fields.Where("repeat"), task);
    }
    task.m_tStartTime = fields.Time("startTime").value_or(task.m_tStartTime);
    task.m_tUntilTime = fields.Time("untilTime").value_or(task.m_tUntilTime);
    task.m_tLastRunTime = fields.Time("lastRunTime").value_or(0);
    task.m_strLastRunResult = fields.Text("lastRunResult").value_or(L"");
    if (const std::string why = WhyNotStorable(task); !why.empty()) {
        throw CRefusal(where + ": " + why);
    }
}
