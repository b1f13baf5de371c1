#include "core/platform/win32/TaskListPlaces.h"

#include <windows.h>

#include "core/list/ProfileFile.h"
#include "util/win32/FileTests.h"

bool CTaskListPlaces::Exists(const std::wstring& path) {
    return FileExists(path) != 0;
}

void CTaskListPlaces::CreateFolder(const std::wstring& folder) {
    CreateDirectoryW(folder.c_str(), nullptr);
}

bool CTaskListPlaces::Copy(const std::wstring& from, const std::wstring& to) {
    std::string bytes;
    return m_files.Read(from, bytes) == IFileSystem::Status::Ok && ReplaceFileBytes(m_files, to, bytes);
}

void CTaskListPlaces::Delete(const std::wstring& path) {
    m_files.Remove(path);
}
