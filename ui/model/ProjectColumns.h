#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>

class CSCVShchedulerTask;

// The columns of the project list, from left to right.
enum ProjectColumn : int {
    kFileNameColumn,
    kLastRunTimeColumn,
    kLastRunResultColumn,
    kNextRunTimeColumn,
    kFilePathColumn,
    kProjectColumnCount,
};

// The sort key of a row: an instant or a text in upper case. All tasks of a column have the same kind.
using SortKey = std::variant<std::int64_t, std::wstring>;

// A column. Its constructor has no defaults, so that a column without a text or a sort key does not compile.
struct stProjectColumn {
    constexpr stProjectColumn(const wchar_t* columnHeader, int widthAt96Dpi,
                              std::wstring (&textOf)(const CSCVShchedulerTask& task, std::int64_t now),
                              SortKey (&sortKeyOf)(const CSCVShchedulerTask& task, std::int64_t now)) noexcept
        : header(columnHeader), width(widthAt96Dpi), text(textOf), sortKey(sortKeyOf) {}

    const wchar_t* header;
    int width;  // pixels at 96 dpi
    // For a task at the instant `now`. Neither function throws, whatever the task's fields hold.
    std::wstring (&text)(const CSCVShchedulerTask& task, std::int64_t now);
    SortKey (&sortKey)(const CSCVShchedulerTask& task, std::int64_t now);
};

// Indexed by ProjectColumn.
extern const std::array<stProjectColumn, kProjectColumnCount> kProjectColumns;

// The column of that index; null when there is no such column (-1, for instance).
[[nodiscard]] const stProjectColumn* FindProjectColumn(int index) noexcept;

// Longer cells are cut to this many UTF-16 units, even if the list view offers a larger buffer.
inline constexpr std::size_t kLongestCell = 254;

// The text of one cell at the instant `now`, cut to kLongestCell; empty when there is no such column.
[[nodiscard]] std::wstring CellText(const CSCVShchedulerTask& task, int column, std::int64_t now);

// The task's next run, for showing and sorting; 0 when it is disabled or never runs. Also 0 when it cannot be
// computed, because a list with such a task must still be drawn.
[[nodiscard]] std::int64_t ShownNextRunTime(const CSCVShchedulerTask& task, std::int64_t now);
