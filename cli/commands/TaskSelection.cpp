#include "cli/commands/TaskSelection.h"

#include "cli/report/Refusal.h"
#include "cli/report/Text.h"
#include "core/task/SCVShchedulerTaskArray.h"
#include "util/CaseFold.h"
#include "util/Path.h"

namespace {

// After a mismatch the last * takes one more character: "*b" against "aab" tries "", "a", "aa" for the *.
bool Matches(std::wstring_view pattern, std::wstring_view text) {
    std::size_t at = 0;
    std::size_t star = std::wstring_view::npos;
    std::size_t behindStar = 0;  // in the text
    for (std::size_t i = 0; i < text.size();) {
        if (at < pattern.size() && pattern[at] == L'*') {
            star = at++;
            behindStar = i;
        } else if (at < pattern.size() && (pattern[at] == L'?' || ToUpper(pattern[at]) == ToUpper(text[i]))) {
            ++at;
            ++i;
        } else if (star != std::wstring_view::npos) {
            at = star + 1;
            i = ++behindStar;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(L'*', at) == std::wstring_view::npos;
}

}  // namespace

bool IsPattern(std::wstring_view name) noexcept {
    return name.find_first_of(L"*?") != std::wstring_view::npos;
}

bool NamesProject(std::wstring_view name, std::wstring_view project) {
    if (!IsPattern(name)) {
        return EqualNoCase(name, project);
    }
    const bool hasFolder = name.find(L'\\') != std::wstring_view::npos;
    return hasFolder ? Matches(name, project) : Matches(name, GetFileName(project));
}

std::vector<CSCVShchedulerTask*> SelectTasks(const CSCVShchedulerTaskArray& tasks,
                                             const std::vector<std::wstring>& names) {
    std::vector<CSCVShchedulerTask*> selected;
    std::vector<bool> isUsed(names.size());
    for (std::ptrdiff_t i = 0; i < tasks.GetSize(); ++i) {
        bool isSelected = names.empty();
        for (std::size_t name = 0; name < names.size(); ++name) {
            if (NamesProject(names[name], tasks[i]->m_strProjectPath)) {
                isUsed[name] = isSelected = true;
            }
        }
        if (isSelected) {
            selected.push_back(tasks[i]);
        }
    }
    for (std::size_t name = 0; name < names.size(); ++name) {
        if (!isUsed[name]) {
            throw CRefusal(IsPattern(names[name]) ? Join("no project of the list matches ", names[name])
                                                  : Join("no task of the list has the project ", names[name],
                                                         "; scvsched list shows those that are there"));
        }
    }
    return selected;
}
