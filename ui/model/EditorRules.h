#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "core/platform/LocalTime.h"
#include "ui/model/EditorMembers.h"

// Changes in the task editor. They apply at once to every selected task; a null pointer (a row without a
// task) is skipped. No function here saves.
using SelectedTasks = std::span<CSCVShchedulerTask* const>;

// After a change of the check box, edit box, count or unit `id`: writes this control's value in `members`
// into the tasks. Returns true when the list has to be repainted. For the two export boxes it also writes the
// export file's name, empty when "Export results into new file" is off. Other ids do nothing.
bool ApplyEditorChange(int id, const stEditorMembers& members, SelectedTasks tasks);

// The local time that a picker shows for an instant: 1 January 1970, 00:00, when the instant has no local
// time, so that the user can change an impossible start.
[[nodiscard]] LocalTime ShownTime(std::int64_t instant);

// After a change of a picker, whose broken-down local time is `picked`. A new date keeps hour, minute and
// second of each task's start. A new time of day keeps each task's date and, on purpose, sets the seconds to
// 0. Repaint the list afterwards. Throws std::invalid_argument, with a sentence (FromWhat), for an impossible
// start; the task that failed and those after it are then unchanged.
void ApplyStartDate(const LocalTime& picked, SelectedTasks tasks);
void ApplyStartTime(const LocalTime& picked, SelectedTasks tasks);
void ApplyUntilTime(const LocalTime& picked, SelectedTasks tasks);
// After "Set Current" has put `now` into both start pickers.
void ApplyStartNow(std::int64_t now, SelectedTasks tasks);

struct stControlState {
    int id;
    bool isEnabled;
};
// For every control that is not always enabled, whether it is enabled: by the state of the check box on which
// it depends or, for buttons that act on projects, by whether a project is selected.
[[nodiscard]] std::vector<stControlState> EditorStates(const stEditorMembers& members, bool hasSelection);
