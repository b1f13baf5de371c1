#include "core/launch/ListKeeper.h"

#include <utility>

#include "core/list/ProfileFile.h"

namespace {

std::wstring KeeperPath(IFileSystem& files, const std::wstring& list, CListKeeper::Kind kind) {
    return LockPath(files, list, kind == CListKeeper::Kind::Window ? L".window" : L".watch");
}

}  // namespace

CListKeeper::CListKeeper(IFileSystem& files, std::wstring list, Kind kind)
    : m_files(files), m_list(std::move(list)), m_kind(kind) {}

bool CListKeeper::TryKeep() {
    return m_lock != nullptr ||
           !(m_files.CreateLock(KeeperPath(m_files, m_list, m_kind), m_lock) == FileResult::Status::Busy);
}

bool CListKeeper::IsKept(IFileSystem& files, const std::wstring& list, Kind kind) {
    // Reads without locking: a lock file left by a power cut can be read, one that is held is busy.
    std::string bytes;
    return files.Read(KeeperPath(files, list, kind), bytes) == FileResult::Status::Busy;
}
