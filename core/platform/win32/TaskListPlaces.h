#pragma once

#include "core/list/TaskListPath.h"
#include "core/platform/FileSystem.h"

// The machine's files as places for a task list.
class CTaskListPlaces final : public ITaskListPlaces {
public:
    // Not owned.
    explicit CTaskListPlaces(IFileSystem& files) noexcept : m_files(files) {}

    [[nodiscard]] bool Exists(const std::wstring& path) override;
    void CreateFolder(const std::wstring& folder) override;
    [[nodiscard]] bool Copy(const std::wstring& from, const std::wstring& to) override;
    void Delete(const std::wstring& path) override;

private:
    IFileSystem& m_files;
};
