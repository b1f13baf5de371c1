#include "core/launch/LaunchClaim.h"

#include <utility>

#include "core/list/ProfileFile.h"

CLaunchClaim::CLaunchClaim(IFileSystem& files, std::wstring list) : m_files(files), m_list(std::move(list)) {}

FileResult CLaunchClaim::TryTake() {
    if (IsTaken()) {
        return {};
    }
    // Another scheduler may know the list by a link to it.
    std::wstring file;
    if (!m_files.ResolveLink(m_list, file)) {
        file = m_list;
    }
    FileResult result = TakeLock(m_files, file + L".launch", m_lock);
    return result == FileResult::Status::Busy ? result : FileResult();
}
