#include "core/launch/LaunchClaim.h"

#include <utility>

#include "core/list/ProfileFile.h"

CLaunchClaim::CLaunchClaim(IFileSystem& files, std::wstring list) : m_files(files), m_list(std::move(list)) {}

FileResult CLaunchClaim::TryTake() {
    if (IsTaken()) {
        return {};
    }
    FileResult result = TakeLock(m_files, LockPath(m_files, m_list, L".launch"), m_lock);
    return result == FileResult::Status::Busy ? result : FileResult();
}
