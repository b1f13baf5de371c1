#include "core/launch/ListKeeper.h"

namespace {

std::wstring LockPath(const std::wstring& list, CListKeeper::Kind kind) {
    return list + (kind == CListKeeper::Kind::Window ? L".window" : L".watch");
}

}  // namespace

CListKeeper::CListKeeper(IFileSystem& files, const std::wstring& list, Kind kind)
    : m_files(files), m_path(LockPath(list, kind)) {}

bool CListKeeper::TryKeep() {
    return m_lock != nullptr || !(m_files.CreateLock(m_path, m_lock) == FileResult::Status::Busy);
}

bool CListKeeper::IsKept(IFileSystem& files, const std::wstring& list, Kind kind) {
    // To open the file for reading takes it from nobody: one that is left from a power cut can be read, one
    // that somebody holds is busy.
    std::string bytes;
    return files.Read(LockPath(list, kind), bytes) == FileResult::Status::Busy;
}
