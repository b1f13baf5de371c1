#include "cli/report/TextReport.h"

#include <algorithm>

#include "cli/report/Csv.h"
#include "cli/report/Text.h"
#include "core/schedule/TimeText.h"
#include "core/task/SCVShchedulerTask.h"

namespace {

constexpr std::size_t kEnabledColumns = 4;
constexpr std::size_t kTimeColumns = 16;
constexpr std::size_t kGap = 2;
constexpr std::size_t kTimesColumns = kTimeColumns + kGap + 18;  // "Next run, schedule"
constexpr std::size_t kFewestPathColumns = 20;

bool IsLowSurrogate(wchar_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

// Terminal columns of a UTF-16 unit: 2 for East Asian characters, 1 for each of the two units of an emoji.
std::size_t Columns(wchar_t unit) {
    const bool wide = (unit >= 0x1100 && unit <= 0x115F) || (unit >= 0x2E80 && unit <= 0xA4CF) ||
                      (unit >= 0xAC00 && unit <= 0xD7A3) || (unit >= 0xF900 && unit <= 0xFAFF) ||
                      (unit >= 0xFE30 && unit <= 0xFE6F) || (unit >= 0xFF00 && unit <= 0xFF60);
    return wide ? 2 : 1;
}

std::size_t Columns(const std::wstring& text) {
    std::size_t columns = 0;
    for (const wchar_t unit : text) {
        columns += Columns(unit);
    }
    return columns;
}

std::vector<std::wstring> Wrap(const std::wstring& text, std::size_t columns) {
    std::vector<std::wstring> lines(text.empty() ? 0 : 1);
    std::size_t used = 0;
    for (const wchar_t unit : text) {
        if (used + Columns(unit) > columns && !IsLowSurrogate(unit)) {
            lines.emplace_back();
            used = 0;
        }
        lines.back() += unit < L' ' ? L' ' : unit;
        used += Columns(unit);
    }
    return lines;
}

// As Wrap, for words: breaks at blanks.
std::vector<std::wstring> WrapWords(const std::wstring& text, std::size_t columns) {
    std::vector<std::wstring> lines;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = text.size();
        if (end - at > columns) {
            const std::size_t blank = text.rfind(L' ', at + columns);
            end = blank == std::wstring::npos || blank <= at ? at + columns : blank;
        }
        lines.push_back(text.substr(at, end - at));
        at = end + (end < text.size() && text[end] == L' ' ? 1 : 0);
    }
    return lines;
}

std::string Padded(const std::wstring& text, std::size_t columns) {
    const std::size_t used = Columns(text);
    return ToUtf8(text) + std::string(used < columns ? columns - used : 0, ' ');
}

std::wstring Times(const std::wstring& last, const std::wstring& next) {
    return last + std::wstring(kTimeColumns - std::min(kTimeColumns, last.size()) + kGap, L' ') + next;
}

void AppendRow(std::string& text, const std::string& first, const std::vector<std::wstring>& left,
               const std::vector<std::wstring>& right, std::size_t leftColumns) {
    for (std::size_t i = 0; i < std::max(left.size(), right.size()); ++i) {
        std::string line = i == 0 ? first : std::string();
        line.resize(kEnabledColumns, ' ');
        line += Padded(i < left.size() ? left[i] : std::wstring(), leftColumns + kGap);
        line += i < right.size() ? ToUtf8(right[i]) : std::string();
        line.erase(line.find_last_not_of(' ') + 1);
        text += line + '\n';
    }
}

std::wstring NextText(const TaskReport& report) {
    return report.error.empty() ? FormatMinute(report.NextRun()) : L"cannot be computed";
}

}  // namespace

std::string TasksAsText(const std::vector<TaskReport>& reports, std::size_t width) {
    if (reports.empty()) {
        return "The list has no task.\n";
    }
    constexpr std::size_t kOthers = kEnabledColumns + kGap + kTimesColumns;
    const std::size_t most = width > kOthers + kFewestPathColumns ? width - kOthers : kFewestPathColumns;
    std::size_t pathColumns = kFewestPathColumns;
    for (const TaskReport& report : reports) {
        pathColumns = std::max(
            {pathColumns, Columns(report.task->m_strProjectPath), Columns(report.task->m_strIniSection)});
    }
    pathColumns = std::min(pathColumns, most);

    std::string text;
    AppendRow(text, "On", {L"Project, section"}, {Times(L"Last run, result", L"Next run, schedule")},
              pathColumns);
    for (const TaskReport& report : reports) {
        const CSCVShchedulerTask& task = *report.task;
        std::vector<std::wstring> left = Wrap(task.m_strProjectPath, pathColumns);
        for (std::wstring& line : Wrap(task.m_strIniSection, pathColumns)) {
            left.push_back(std::move(line));
        }
        std::vector<std::wstring> right = {Times(FormatMinute(task.m_tLastRunTime), NextText(report))};
        for (std::wstring& line : Wrap(task.m_strLastRunResult, kTimesColumns)) {
            right.push_back(std::move(line));
        }
        for (std::wstring& line : WrapWords(report.schedule, kTimesColumns)) {
            right.push_back(std::move(line));
        }
        AppendRow(text, task.m_bEnable != 0 ? "yes" : "no", left, right, pathColumns);
    }
    return text;
}

std::string TasksAsLines(const std::vector<TaskReport>& reports) {
    std::string text;
    for (const TaskReport& report : reports) {
        const CSCVShchedulerTask& task = *report.task;
        text += Join(FormatMinute(task.m_tLastRunTime), "\t", NextText(report), "\t",
                     task.m_strLastRunResult.empty() ? L"-" : task.m_strLastRunResult, "\t",
                     task.m_strProjectPath, "\t", report.schedule, "\n");
    }
    return text;
}

std::string TasksAsCsv(const std::vector<TaskReport>& reports) {
    std::string text(kCsvStart);
    AppendCsvRow(text, {L"Enabled", L"Project", L"Last run", L"Last result", L"Next run", L"Command line",
                        L"Section", L"Schedule"});
    const auto time = [](std::int64_t instant) {
        return instant == 0 ? std::wstring() : FormatSecond(instant);
    };
    for (const TaskReport& report : reports) {
        const CSCVShchedulerTask& task = *report.task;
        AppendCsvRow(text, {task.m_bEnable != 0 ? L"yes" : L"no", task.m_strProjectPath,
                            time(task.m_tLastRunTime), task.m_strLastRunResult, time(report.NextRun()),
                            task.BuildCommandLine(), task.m_strIniSection, report.schedule});
    }
    return text;
}

std::string NextRunsAsCsv(const std::vector<TaskReport>& reports) {
    std::string text(kCsvStart);
    AppendCsvRow(text, {L"Run", L"Project"});
    for (const TaskReport& report : reports) {
        const std::wstring& project = report.task->m_strProjectPath;
        for (const std::int64_t run : report.runs) {
            AppendCsvRow(text, {FormatSecond(run), project});
        }
        if (report.runs.empty()) {
            AppendCsvRow(text, {L"", project});
        }
    }
    return text;
}

std::string NextRunsAsText(const std::vector<TaskReport>& reports) {
    std::string text;
    for (const TaskReport& report : reports) {
        const std::wstring& path = report.task->m_strProjectPath;
        const std::wstring words = report.schedule.empty() ? std::wstring() : L"  " + report.schedule;
        for (const std::int64_t run : report.runs) {
            text +=
                Join(FormatSecond(run), "  ", path, run == report.NextRun() ? words : std::wstring(), "\n");
        }
        if (!report.error.empty()) {
            text += Join("cannot be computed   ", path, " (", report.error, ")\n");
        } else if (report.runs.empty()) {
            text += Join(report.task->m_bEnable != 0 ? "never                " : "disabled             ",
                         path, words, "\n");
        }
    }
    return text;
}

std::string FindingsAsText(const std::wstring& list, const std::vector<Finding>& findings) {
    std::string text;
    for (const Finding& finding : findings) {
        text += Join(finding.project.empty() ? list : finding.project, " [", finding.section,
                     "]: ", finding.message, "\n");
    }
    return text;
}
