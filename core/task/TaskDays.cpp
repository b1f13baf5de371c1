#include "core/task/TaskDays.h"

#include <algorithm>
#include <iterator>

#include "util/CaseFold.h"
#include "util/Utf8.h"

const TaskDay* FindTaskDay(std::string_view name) {
    const std::wstring wanted = FromUtf8(name);
    if (EqualNoCase(wanted, L"wed")) {
        return &kTaskDays[2];
    }
    const auto* day = std::find_if(std::begin(kTaskDays), std::end(kTaskDays), [&](const TaskDay& candidate) {
        return EqualNoCase(wanted, FromUtf8(candidate.name));
    });
    return day == std::end(kTaskDays) ? nullptr : day;
}

std::string TaskDayNames() {
    std::string names;
    for (const TaskDay& day : kTaskDays) {
        names += names.empty() ? "" : &day == std::end(kTaskDays) - 1 ? " and " : ", ";
        names += day.name;
    }
    return names;
}
