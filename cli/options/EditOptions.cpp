#include "cli/options/EditOptions.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <limits>
#include <sstream>

#include "core/schedule/TimeText.h"
#include "util/Utf8.h"

namespace {

// The last instant that the list file tells from later ones is one less.
constexpr std::int64_t kTimesEnd = std::numeric_limits<std::int32_t>::max();

std::optional<std::vector<const TaskDay*>> ParseDays(const std::string& text) {
    std::vector<const TaskDay*> days;
    std::istringstream names(text);
    for (std::string name; std::getline(names, name, ',');) {
        days.push_back(FindTaskDay(name));
        if (days.back() == nullptr) {
            return std::nullopt;
        }
    }
    return days;
}

// "90m" or "2h".
std::optional<TaskChanges::Every> ParseEvery(const std::string& text) {
    TaskChanges::Every every;
    const char* const end = text.data() + text.size();
    const auto [unit, error] = std::from_chars(text.data(), end, every.value);
    if (error != std::errc{} || every.value < 1 || unit + 1 != end || (*unit != 'm' && *unit != 'h')) {
        return std::nullopt;
    }
    every.unit = *unit == 'h' ? 1 : 0;
    return every;
}

std::string WrongStart(const std::string& text) {
    const auto time = ParseTime(text);
    if (!time) {
        return "'" + text + "' is neither an ISO local time nor seconds since 1970";
    }
    return *time > 0 && *time < kTimesEnd
               ? std::string()
               : "'" + text + "' is not between 1970 and 2038-01-19, which the list file can hold";
}

std::string WrongDays(const std::string& text) {
    const auto days = ParseDays(text);
    return days && !days->empty() ? std::string() : "'" + text + "' is no list of days such as mon,thu";
}

std::string WrongEvery(const std::string& text) {
    return ParseEvery(text) ? std::string() : "'" + text + "' is no interval such as 90m or 2h";
}

std::string WrongTimeOfDay(const std::string& text) {
    return ParseTimeOfDay(text) ? std::string() : "'" + text + "' is no time of day such as 18:00";
}

std::string WrongFile(const std::string& text) {
    return text.empty() ? "a file is missing" : std::string();
}

// In help an option shows `type`; `whatIsWrong` answers a sentence, empty when nothing is.
void Shape(CLI::Option* option, const char* group, const char* type,
           std::string (*whatIsWrong)(const std::string&)) {
    option->check(CLI::Validator([whatIsWrong](const std::string& text) { return whatIsWrong(text); }, ""))
        ->type_name(type)
        ->group(group);
}

void RequireOneOf(bool on, bool off, const std::string& name) {
    if (on && off) {
        throw CLI::ValidationError("--" + name + " and --no-" + name + " exclude each other",
                                   CLI::ExitCodes::ValidationError);
    }
}

}  // namespace

// The options that begin with "--no-" are not listed: help tells of them all in one sentence.
void CEditOptions::AddTo(CLI::App& command) {
    constexpr const char* kWhen = "When";
    Shape(command.add_option("--start", m_start,
                             "The first run, and the time of day of weekly and monthly ones"),
          kWhen, "TIME", WrongStart);
    Shape(command.add_option("--days", m_days, "The weekdays, such as mon,thu"), kWhen, "DAYS", WrongDays);
    command.add_flag("--monthly", m_monthly, "On day 1 of each month")->group(kWhen);
    Shape(command.add_option("--every", m_every, "Again after so long, such as 90m or 2h"), kWhen, "INTERVAL",
          WrongEvery);
    Shape(command.add_option("--until", m_until,
                             "The time of day after which --every starts nothing, such as 18:00"),
          kWhen, "HH:MM", WrongTimeOfDay);
    AddCommands(command);
    command.add_flag("--no-days", m_noDays)->group("");
    command.add_flag("--no-monthly", m_noMonthly)->group("");
    command.add_flag("--no-every", m_noEvery)->group("");
    command.add_flag("--no-export-file", m_noExportFile)->group("");
}

void CEditOptions::AddCommands(CLI::App& command) {
    constexpr const char* kCommands = "What the extraction program is told to do";
    for (std::size_t i = 0; i < kCount; ++i) {
        const TaskCommand& entry = kTaskCommands[i];
        if (*entry.help == '\0') {
            continue;
        }
        const std::string name = std::string("--") + entry.name;
        if (entry.value == TaskCommand::Value::File) {
            Shape(command.add_option(name, m_files[i], entry.help), kCommands, "FILE", WrongFile);
        } else {
            command.add_flag(name, m_on[i], entry.help)->group(kCommands);
        }
        command.add_flag(std::string("--no-") + entry.name, m_off[i])->group("");
        if (entry.flag == &CSCVShchedulerTask::m_bImportInputValues) {
            command.add_option("--element-name", m_elementName, "The name of the input element")
                ->each([this](const std::string&) { m_hasElementName = true; })
                ->group(kCommands);
            command.add_option("--element-id", m_elementId, "The id of the input element")
                ->each([this](const std::string&) { m_hasElementId = true; })
                ->group(kCommands);
        } else if (entry.flag == &CSCVShchedulerTask::m_bExportResults) {
            Shape(command.add_option("--export-file", m_exportFile, "Export results into this new file"),
                  kCommands, "FILE", WrongFile);
        }
    }
}

void CEditOptions::AddDisabled(CLI::App& command) {
    command.add_flag("--disabled", m_disabled, "List it without running it")->group("When");
}

void CEditOptions::AddResetLastRun(CLI::App& command) {
    command
        .add_flag("--reset-last-run", m_resetLastRun,
                  "Forget the last run, so that a task without repeats runs again")
        ->group("When");
}

TaskChanges CEditOptions::Changes(const std::function<std::wstring(const std::wstring&)>& fullPath) const {
    RequireOneOf(!m_days.empty(), m_noDays, "days");
    RequireOneOf(m_monthly, m_noMonthly, "monthly");
    RequireOneOf(!m_every.empty(), m_noEvery, "every");
    RequireOneOf(!m_exportFile.empty(), m_noExportFile, "export-file");
    TaskChanges changes;
    if (!m_start.empty()) {
        changes.start = ParseTime(m_start);
    }
    if (m_noDays || !m_days.empty()) {
        changes.days = ParseDays(m_days);
    }
    if (m_monthly || m_noMonthly) {
        changes.monthly = m_monthly;
    }
    if (m_noEvery) {
        changes.every = TaskChanges::Every{};
    } else if (!m_every.empty()) {
        changes.every = ParseEvery(m_every);
    }
    if (!m_until.empty()) {
        changes.until = ParseTimeOfDay(m_until);
    }
    for (std::size_t i = 0; i < kCount; ++i) {
        std::wstring file = m_files[i].empty() ? std::wstring() : fullPath(FromUtf8(m_files[i]));
        if (kTaskCommands[i].flag == &CSCVShchedulerTask::m_bExportResults && !m_exportFile.empty()) {
            file = fullPath(FromUtf8(m_exportFile));
        }
        RequireOneOf(m_on[i] || !file.empty(), m_off[i], kTaskCommands[i].name);
        if (m_on[i] || m_off[i] || !file.empty()) {
            changes.commands.push_back({&kTaskCommands[i], !m_off[i], std::move(file)});
        }
    }
    changes.noExportFile = m_noExportFile;
    if (m_hasElementName) {
        changes.elementName = FromUtf8(m_elementName);
    }
    if (m_hasElementId) {
        changes.elementId = FromUtf8(m_elementId);
    }
    changes.disabled = m_disabled;
    changes.resetLastRun = m_resetLastRun;
    return changes;
}
