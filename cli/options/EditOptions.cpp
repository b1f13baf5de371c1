#include "cli/options/EditOptions.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <limits>
#include <sstream>

#include "core/schedule/TimeText.h"
#include "util/Utf8.h"

namespace {

// First instant that the file cannot tell from later ones (2038-01-19 03:14:07 UTC).
constexpr std::int64_t kTimesEnd = std::numeric_limits<std::int32_t>::max();

// Groups of options in help.
constexpr const char* kWhen = "When";
constexpr const char* kCommands = "Commands for the extraction program";

std::optional<std::vector<const TaskDay*>> ParseDays(const std::string& text) {
    std::vector<const TaskDay*> days;
    std::istringstream names(text);
    for (std::string name; std::getline(names, name, ',');) {
        days.push_back(FindTaskDay(FromUtf8(name)));
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

// Adds an option with one argument. The parser rejects the argument when `whatIsWrong` returns a text.
CLI::Option* AddChecked(CLI::App& command, const std::string& name, std::string& text, const char* help,
                        std::string (*whatIsWrong)(const std::string&)) {
    return command.add_option(name, text, help)
        ->check(CLI::Validator([whatIsWrong](const std::string& given) { return whatIsWrong(given); }, ""));
}

void RequireOneOf(bool on, bool off, const std::string& name) {
    if (on && off) {
        throw CLI::ValidationError("--" + name + " and --no-" + name + " exclude each other",
                                   CLI::ExitCodes::ValidationError);
    }
}

}  // namespace

// Help does not list the options that begin with "--no-"; one sentence explains all of them.
void CEditOptions::AddTo(CLI::App& command) {
    const struct {
        const char* name;
        const char* type;
        const char* help;
        std::string& text;
        std::string (*whatIsWrong)(const std::string&);
    } timing[] = {
        {"--start", "TIME", "The first run, and the time of day of weekly and monthly ones", m_start,
         WrongStart},
        {"--days", "DAYS", "The weekdays, such as mon,thu", m_days, WrongDays},
        {"--every", "INTERVAL",
         "Again after so long, such as 90m or 2h. Without --days it ends for good the first time that a run "
         "would be later than --until; with --days it begins at 00:00 on each of them",
         m_every, WrongEvery},
        {"--until", "HH:MM", "The time of day after which --every starts nothing, such as 18:00", m_until,
         WrongTimeOfDay},
    };
    for (const auto& row : timing) {
        AddChecked(command, row.name, row.text, row.help, row.whatIsWrong)->type_name(row.type)->group(kWhen);
    }
    command.add_flag("--monthly", m_monthly, "On day 1 of each month")->group(kWhen);
    AddCommands(command);
    const std::pair<const char*, bool&> opposites[] = {{"--no-days", m_noDays},
                                                       {"--no-monthly", m_noMonthly},
                                                       {"--no-every", m_noEvery},
                                                       {"--no-export-file", m_noExportFile}};
    for (const auto& [name, given] : opposites) {
        command.add_flag(name, given)->group("");
    }
}

void CEditOptions::AddCommands(CLI::App& command) {
    for (std::size_t i = 0; i < kCount; ++i) {
        const TaskSwitch& entry = kTaskSwitches[i];
        if (entry.caption.empty()) {
            continue;
        }
        const std::string name = std::string("--") + entry.name;
        const std::string caption = ToUtf8(entry.caption);
        if (entry.argument == TaskSwitch::Argument::Required) {
            const std::string help =
                caption + (entry.hasElement ? ", for --element-name or --element-id" : "");
            AddChecked(command, name, m_files[i], help.c_str(), WrongFile)
                ->type_name("FILE")
                ->group(kCommands);
        } else {
            command.add_flag(name, m_on[i], caption)->group(kCommands);
        }
        command.add_flag(std::string("--no-") + entry.name, m_off[i])->group("");
    }
    command.add_option("--element-name", m_elementName, "The name of the input element")
        ->each([this](const std::string&) { m_hasElementName = true; })
        ->group(kCommands);
    command.add_option("--element-id", m_elementId, "The id of the input element")
        ->each([this](const std::string&) { m_hasElementId = true; })
        ->group(kCommands);
    AddChecked(command, "--export-file", m_exportFile, "Export results into this new file", WrongFile)
        ->type_name("FILE")
        ->group(kCommands);
}

void CEditOptions::AddDisabled(CLI::App& command) {
    command.add_flag("--disabled", m_disabled, "List it without running it")->group(kWhen);
}

void CEditOptions::AddResetLastRun(CLI::App& command) {
    command
        .add_flag("--reset-last-run", m_resetLastRun,
                  "Forget the last run, so that a task without repeats runs again")
        ->group(kWhen);
}

TaskChanges CEditOptions::Changes(const FullPath& fullPath) const {
    RequireOneOf(!m_days.empty(), m_noDays, "days");
    RequireOneOf(m_monthly, m_noMonthly, "monthly");
    RequireOneOf(!m_every.empty(), m_noEvery, "every");
    RequireOneOf(!m_exportFile.empty(), m_noExportFile, "export-file");
    TaskChanges changes;
    if (!m_start.empty()) {
        changes.start = ParseTime(m_start);
    }
    if (!m_until.empty()) {
        changes.until = ParseTimeOfDay(m_until);
    }
    changes.disabled = m_disabled;
    changes.resetLastRun = m_resetLastRun;
    TakeRepeat(changes);
    TakeCommands(changes, fullPath);
    return changes;
}

void CEditOptions::TakeRepeat(TaskChanges& changes) const {
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
}

void CEditOptions::TakeCommands(TaskChanges& changes, const FullPath& fullPath) const {
    for (std::size_t i = 0; i < kCount; ++i) {
        const bool exports = kTaskSwitches[i].flag == &TaskFields::m_bExportResults;
        const std::wstring file = fullPath(exports ? m_exportFile : m_files[i]);
        const bool isOn = m_on[i] || !file.empty();
        RequireOneOf(isOn, m_off[i], kTaskSwitches[i].name);
        if (isOn || m_off[i]) {
            changes.commands.push_back({&kTaskSwitches[i], isOn, file});
        }
    }
    changes.noExportFile = m_noExportFile;
    if (m_hasElementName) {
        changes.elementName = FromUtf8(m_elementName);
    }
    if (m_hasElementId) {
        changes.elementId = FromUtf8(m_elementId);
    }
}
