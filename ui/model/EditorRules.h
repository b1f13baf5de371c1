#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "core/platform/LocalTime.h"
#include "ui/model/EditorMembers.h"

// What a change in the task editor does. It applies at once to every selected task; a null among them stands
// for a row without a task and is passed over. Nothing here saves.
using SelectedTasks = std::span<CSCVShchedulerTask* const>;

// After a change of check box, edit box, count or unit `id`: writes what `members` says into the tasks. True
// when the list has to be repainted. Needed of `members` is the control's own value, for the two export boxes
// also that of the other one and of the export file's edit box. An id of another control does nothing.
bool ApplyEditorChange(int id, const stEditorMembers& members, SelectedTasks tasks);

// What a picker shows of an instant: midnight of 1 January 1970 for one without a local time, so that a task
// with an impossible start can be given another one.
[[nodiscard]] LocalTime ShownTime(std::int64_t instant);

// After a change of a picker, whose broken-down local time is `picked`. The date keeps hour, minute and
// second of each task's start; the time of day keeps its date and, on purpose, sets the seconds to 0. The
// list has to be repainted after each. Throws std::invalid_argument, with a sentence in UTF-8, for a start
// that no calendar has; the task that failed and those after it are then as they were.
void ApplyStartDate(const LocalTime& picked, SelectedTasks tasks);
void ApplyStartTime(const LocalTime& picked, SelectedTasks tasks);
void ApplyUntilTime(const LocalTime& picked, SelectedTasks tasks);
// After "Set Current" has put `now` into both start pickers.
void ApplyStartNow(std::int64_t now, SelectedTasks tasks);

struct stControlState {
    int id;
    bool isEnabled;
};
// For every control that is not always enabled, whether it is: the dependants of a check box by its state,
// the buttons that act on projects while one is selected.
[[nodiscard]] std::vector<stControlState> EditorStates(const stEditorMembers& members, bool hasSelection);
