#include "core/task/TaskDays.h"

#include <algorithm>
#include <iterator>

#include "util/CaseFold.h"

const TaskDay* FindTaskDay(std::wstring_view name) {
    if (EqualNoCase(name, L"wed")) {
        return &kTaskDays[2];
    }
    const auto* day = std::find_if(std::begin(kTaskDays), std::end(kTaskDays), [&](const TaskDay& candidate) {
        return EqualNoCase(name, candidate.name);
    });
    return day == std::end(kTaskDays) ? nullptr : day;
}

std::wstring TaskDayNames() {
    std::wstring names;
    for (const TaskDay& day : kTaskDays) {
        names += names.empty() ? L"" : &day == std::end(kTaskDays) - 1 ? L" and " : L", ";
        names += day.name;
    }
    return names;
}
