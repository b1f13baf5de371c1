#include "cli/report/TaskJson.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>
#include <string_view>
#include <vector>

#include "cli/report/JsonFields.h"
#include "cli/report/JsonReport.h"
#include "cli/report/Refusal.h"
#include "cli/report/Text.h"
#include "core/launch/ExtractionProgram.h"
#include "core/list/Storable.h"
#include "core/task/NewProject.h"
#include "core/task/SCVShchedulerTask.h"
#include "core/task/TaskDays.h"
#include "core/task/TaskSwitches.h"
#include "util/Path.h"

namespace {

using Task = CSCVShchedulerTask;

// Relative paths are refused, because an exported list may be imported from any folder.
void RequireFullPath(const std::wstring& path, const std::string& where) {
    const bool hasDrive = path.size() > 2 && path[1] == L':' && (path[2] == L'\\' || path[2] == L'/');
    if (!hasDrive && !path.starts_with(L"\\\\")) {
        throw CRefusal(Join(where, ": '", path, "' is no full path such as C:\\projects\\prices.scvpr"));
    }
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
    if (hasText && command.argument != TaskSwitch::Argument::Optional) {  // a file
        RequireFullPath(field->get<std::wstring>(), fields.Where(command.name));
    }
    command.SwitchOn(task, hasText ? field->get<std::wstring>() : std::wstring());
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
        throw CRefusal(fields.Where("import-values") + " needs element-name or element-id");
    }
    if (task.m_bImportInputValues == 0 && (name || id)) {
        throw CRefusal(where + " names an input element without import-values");
    }
    task.m_strInputElementName = name.value_or(L"");
    task.m_strInputElementId = id.value_or(L"");
}

std::vector<const TaskDay*> ImportDays(const Json& days, const std::string& where) {
    if (!days.is_array()) {
        throw CRefusal(where + " has to be an array of days");
    }
    std::vector<const TaskDay*> found;
    for (const TaskDay& day : kTaskDays) {
        const auto isThis = [&](const Json& name) {
            return name.is_string() && FindTaskDay(name.get<std::wstring>()) == &day;
        };
        if (std::any_of(days.begin(), days.end(), isThis)) {
            found.push_back(&day);
        }
    }
    for (const Json& name : days) {
        if (!name.is_string() || FindTaskDay(name.get<std::wstring>()) == nullptr) {
            throw CRefusal(Join(where, " has ", name.dump(), ", which is none of ", TaskDayNames()));
        }
    }
    return found;
}

// Exports have the days under both names.
void ImportWeekdays(const CJsonFields& fields, Task& task) {
    const Json* const days = fields.Find("days");
    const Json* const weekdays = fields.Find("weekdays");
    const Json* const given = days != nullptr ? days : weekdays;
    if (given == nullptr) {
        return;
    }
    const auto found = ImportDays(*given, fields.Where(given == days ? "days" : "weekdays"));
    if (days != nullptr && weekdays != nullptr && ImportDays(*weekdays, fields.Where("weekdays")) != found) {
        throw CRefusal(fields.Where("days") + " and weekdays differ; one of them is enough");
    }
    for (const TaskDay* day : found) {
        task.*day->flag = 1;
    }
}

// Exports have the unit under both names.
std::optional<std::wstring> ImportUnit(const CJsonFields& fields) {
    const auto unit = fields.Text("unit");
    const auto unitName = fields.Text("unitName");
    if (unit && unitName && *unit != *unitName) {
        throw CRefusal(fields.Where("unit") + " and unitName differ; one of them is enough");
    }
    auto found = unit ? unit : unitName;
    if (found && *found != L"hours" && *found != L"minutes") {
        throw CRefusal(fields.Where(unit ? "unit" : "unitName") + R"( has to be "hours" or "minutes")");
    }
    return found;
}

void ImportEvery(const Json& json, const std::string& where, Task& task) {
    const CJsonFields fields(json, where, {"enabled", "value", "unit", "unitName"});
    task.m_bEnableEvery = fields.Bool("enabled").value_or(true) ? 1 : 0;
    task.m_nEveryValue = fields.Number("value").value_or(task.m_nEveryValue);
    if (task.m_bEnableEvery != 0 && task.m_nEveryValue < 1) {
        throw CRefusal(fields.Where("value") + " has to be 1 or more");
    }
    if (const auto unit = ImportUnit(fields)) {
        task.m_nEveryUnit = *unit == L"hours" ? 1 : 0;
    }
}

void ImportRepeat(const Json& json, const std::string& where, Task& task) {
    const CJsonFields fields(json, where, {"days", "weekdays", "monthly", "every"});
    ImportWeekdays(fields, task);
    task.m_bRepeatOnMonthly = fields.Bool("monthly").value_or(false) ? 1 : 0;
    if (const Json* every = fields.Find("every")) {
        ImportEvery(*every, fields.Where("every"), task);
    }
}

// The local times are known keys but are not read: they may come from another time zone.
CJsonFields FieldsOf(const Json& task, const std::string& where) {
    return {task,
            where,
            {"project", "enabled", "commands", "startTime", "startTimeLocal", "repeat", "untilTime",
             "untilTimeLocal", "lastRunTime", "lastRunTimeLocal", "lastRunResult", "schedule"}};
}

}  // namespace

Json CommandsAsJson(const Task& task) {
    Json json = Json::object();
    for (const TaskSwitch& command : kTaskSwitches) {
        if (!command.IsOn(task)) {
            continue;
        }
        if (command.text == nullptr || (task.*command.text).empty()) {
            json[command.name] = true;
        } else {
            json[command.name] = HalvedApostrophes(task.*command.text);
        }
        if (command.hasElement) {
            json["element-name"] = HalvedApostrophes(task.m_strInputElementName);
            json["element-id"] = HalvedApostrophes(task.m_strInputElementId);
        }
    }
    return json;
}

Json ExportTask(const CSCVShchedulerTask& task) {
    // Only what the list would keep. For instance, every save leaves out a switch without its argument.
    Task kept;
    kept.ParseCommandLine(task.BuildCommandLine());
    Json json;
    json["project"] = HalvedApostrophes(kept.m_strProjectPath);
    json["enabled"] = task.m_bEnable != 0;
    json["commands"] = CommandsAsJson(kept);
    AddTime(json, "startTime", task.m_tStartTime);
    json["repeat"] = RepeatAsJson(task);
    json["repeat"]["every"]["unit"] = json["repeat"]["every"]["unitName"];
    AddTime(json, "untilTime", task.m_tUntilTime);
    AddTime(json, "lastRunTime", task.m_tLastRunTime);
    json["lastRunResult"] = HalvedApostrophes(task.m_strLastRunResult);
    return json;
}

std::wstring ImportedProject(const Json& json, const std::string& where) {
    const CJsonFields fields = FieldsOf(json, where);
    std::wstring project = fields.Text("project").value_or(L"");
    if (project.empty()) {
        throw CRefusal(where + " names no project");
    }
    RequireFullPath(project, fields.Where("project"));
    if (!IsProjectExtension(GetFileExtension(project))) {
        throw CRefusal(Join(fields.Where("project"), ": ", project, " ends in neither .scvpr nor .oslpr"));
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
    if (const std::wstring why = WhyNotStorable(task); !why.empty()) {
        throw CRefusal(Join(where, ": ", why));
    }
}
