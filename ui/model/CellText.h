#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

class CSCVShchedulerTask;

// What the project list shows of a task.

enum ProjectColumn : int {
    kFileNameColumn,
    kLastRunTimeColumn,
    kLastRunResultColumn,
    kNextRunTimeColumn,
    kFilePathColumn,
};

struct stProjectColumn {
    const wchar_t* header;
    int width;  // pixels at 96 dpi
};

// By ProjectColumn.
inline constexpr std::array<stProjectColumn, 5> kProjectColumns{{
    {L"Project File Name", 200},
    {L"Last Run Time", 110},
    {L"Last Run Result", 100},
    {L"Next Run Time", 110},
    {L"File Path", 400},
}};

// Longer cells are cut to this many UTF-16 units, whatever room the list view offers.
inline constexpr std::size_t kLongestCell = 254;

// The text of one cell at the instant `now`; empty for a column that there is not. Never raises for what a
// task holds.
[[nodiscard]] std::wstring CellText(const CSCVShchedulerTask& task, int column, std::int64_t now);

// When the task runs next, for showing and sorting; 0 when it is disabled or never runs, or when a stored
// time leads to a date that cannot exist: a list that shows such a task must still draw.
[[nodiscard]] std::int64_t ShownNextRunTime(const CSCVShchedulerTask& task, std::int64_t now);
