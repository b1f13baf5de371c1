#include "core/check/Check.h"

#include <map>

#include "core/check/TaskCheck.h"
#include "core/list/PrivateProfile.h"
#include "core/list/Storable.h"
#include "core/list/StoredKeys.h"
#include "core/list/TaskListFile.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "util/CaseFold.h"

namespace {

void AddDuplicate(std::vector<Finding>& findings, const CSCVShchedulerTask& task,
                  const CSCVShchedulerTask& first) {
    findings.push_back({task.m_strProjectPath, task.m_strIniSection,
                        L"the project is listed twice, first in " + first.m_strIniSection});
}

void CheckDuplicates(std::vector<Finding>& findings, const CSCVShchedulerTaskArray& tasks) {
    const auto less = [](const std::wstring* left, const std::wstring* right) {
        return CompareNoCase(*left, *right) < 0;
    };
    std::map<const std::wstring*, const CSCVShchedulerTask*, decltype(less)> seen(less);
    for (std::ptrdiff_t i = 0; i < tasks.GetSize(); ++i) {
        const CSCVShchedulerTask& task = *tasks[i];
        const auto [first, isNew] = seen.emplace(&task.m_strProjectPath, &task);
        if (!isNew) {
            AddDuplicate(findings, task, *first->second);
        }
    }
}

// Finds sections within TaskCount that hold no task, with one finding for each range of missing ones.
void CheckSections(std::vector<Finding>& findings, const CPrivateProfile& profile,
                   const CSCVShchedulerTaskArray& tasks) {
    const std::int32_t count = profile.GetInt(kTaskListSection, kTaskCountKey, 0);
    std::int64_t expected = 1;
    const auto addMissing = [&](std::int64_t next) {
        if (next > expected) {
            const std::wstring last = TaskSectionName(static_cast<std::int32_t>(next - 1));
            findings.push_back({L"", TaskSectionName(static_cast<std::int32_t>(expected)),
                                next - 1 == expected ? L"the section is missing"
                                                     : L"the sections up to " + last + L" are missing"});
        }
        expected = next + 1;
    };
    std::ptrdiff_t loaded = 0;
    for (const std::int32_t number : FindTaskSections(profile, 1, count)) {
        addMissing(number);
        const std::wstring name = TaskSectionName(number);
        if (loaded < tasks.GetSize() && tasks[loaded]->m_strIniSection == name) {
            ++loaded;
        } else {
            findings.push_back({L"", name, L"the section names no project"});
        }
    }
    addMissing(std::int64_t{count} + 1);
}

}  // namespace

std::vector<Finding> FindProblems(const CPrivateProfile& profile, const CSCVShchedulerTaskArray& tasks,
                                  IShell& shell, std::int64_t now) {
    std::vector<Finding> findings;
    CheckSections(findings, profile, tasks);
    CheckDuplicates(findings, tasks);
    CTaskCheck check(shell, now);
    for (std::ptrdiff_t i = 0; i < tasks.GetSize(); ++i) {
        const CSCVShchedulerTask& task = *tasks[i];
        check.AddFindings(task, profile.GetString(task.m_strIniSection, kCommandLineKey).value_or(L""),
                          findings);
    }
    return findings;
}

std::vector<Finding> FindProblemsOf(const CSCVShchedulerTask& task, const CSCVShchedulerTaskArray& tasks,
                                    IShell& shell, std::int64_t now) {
    std::vector<Finding> findings;
    const std::ptrdiff_t first = tasks.FindTask(task.m_strProjectPath);
    if (first >= 0 && tasks[first] != &task) {
        AddDuplicate(findings, task, *tasks[first]);
    }
    CTaskCheck(shell, now).AddFindings(task, DoubledApostrophes(task.BuildCommandLine()), findings);
    return findings;
}
