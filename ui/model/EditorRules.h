#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "core/platform/LocalTime.h"
#include "ui/model/EditorMembers.h"

// What a change in the task editor does. It applies at once to every selected task; a null pointer, for a row
// without a task, is skipped. Nothing here saves.
using SelectedTasks = std::span<CSCVShchedulerTask* const>;

// After a change of the check box, edit box, count or unit `id`: writes that control's value in `members`
// into the tasks. Returns true when the list has to be repainted. For the two export boxes it also reads the
// other box and the export file's edit box. The id of any other control does nothing.
bool ApplyEditorChange(int id, const stEditorMembers& members, SelectedTasks tasks);

// The local time that a picker shows for an instant: midnight of 1 January 1970 when the instant has no local
// time, so that the user can give a task with an impossible start another one.
[[nodiscard]] LocalTime ShownTime(std::int64_t instant);

// After a change of a picker, whose broken-down local time is `picked`. The date keeps hour, minute and
// second of each task's start; the time of day keeps its date and, on purpose, sets the seconds to 0. The
// list has to be repainted after each. Throws std::invalid_argument, with a sentence (FromWhat), for a start
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
