#include "core/task/SCVShchedulerTaskArray.h"

#include <algorithm>
#include <stdexcept>
#include <unordered_map>
#include <utility>

#include "util/CaseFold.h"

CSCVShchedulerTask* CSCVShchedulerTaskArray::GetAt(std::ptrdiff_t index) const {
    if (index < 0 || index >= GetSize()) {
        throw std::invalid_argument("index outside the task array");
    }
    return m_tasks[static_cast<std::size_t>(index)].get();
}

std::ptrdiff_t CSCVShchedulerTaskArray::AddTask(const std::wstring& projectPath, std::int64_t now) {
    return InsertTask(GetSize(), projectPath, now);
}

std::ptrdiff_t CSCVShchedulerTaskArray::AddTask(const TaskFields& fields) {
    auto task = std::make_unique<CSCVShchedulerTask>();
    static_cast<TaskFields&>(*task) = fields;
    m_tasks.push_back(std::move(task));
    return GetSize() - 1;
}

std::ptrdiff_t CSCVShchedulerTaskArray::InsertTask(std::ptrdiff_t index, const std::wstring& projectPath,
                                                   std::int64_t now) {
    if (index < 0) {
        throw std::invalid_argument("negative index for a new task");
    }
    if (index > GetSize()) {
        return -1;
    }
    auto task = std::make_unique<CSCVShchedulerTask>(now);
    task->m_strProjectPath = projectPath;
    m_tasks.insert(m_tasks.begin() + index, std::move(task));
    return index;
}

std::ptrdiff_t CSCVShchedulerTaskArray::FindTask(std::wstring_view projectPath) const noexcept {
    const auto found = std::find_if(m_tasks.begin(), m_tasks.end(), [&](const auto& task) {
        return EqualNoCase(task->m_strProjectPath, projectPath);
    });
    return found == m_tasks.end() ? -1 : found - m_tasks.begin();
}

int CSCVShchedulerTaskArray::RemoveTask(std::wstring_view projectPath) {
    const std::ptrdiff_t index = FindTask(projectPath);
    if (index < 0) {
        return 0;
    }
    RemoveTaskAt(index);
    return 1;
}

std::size_t CSCVShchedulerTaskArray::RemoveTasks(std::span<const std::wstring> projectPaths) {
    std::unordered_map<std::wstring, std::ptrdiff_t> wanted;  // how often each path is given, in upper case
    for (const std::wstring& path : projectPaths) {
        ++wanted[ToUpperText(path)];
    }
    return std::erase_if(m_tasks, [&](const auto& task) {
        const auto found = wanted.find(ToUpperText(task->m_strProjectPath));
        return found != wanted.end() && found->second-- > 0;
    });
}

std::ptrdiff_t CSCVShchedulerTaskArray::RemoveTaskAt(std::ptrdiff_t index) {
    if (index < 0 || index >= GetSize()) {
        throw std::invalid_argument("index outside the task array");
    }
    m_tasks.erase(m_tasks.begin() + index);
    return GetSize();
}

void CSCVShchedulerTaskArray::RemoveAllTasks() noexcept {
    m_tasks.clear();
    m_tasks.shrink_to_fit();
}
