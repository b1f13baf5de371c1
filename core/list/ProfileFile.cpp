#include "core/list/ProfileFile.h"

#include <algorithm>
#include <utility>

namespace {

using Status = IFileSystem::Status;

constexpr unsigned kTries = 11;
constexpr unsigned kLockMilliseconds = 10'000;
constexpr unsigned kLongestLockPause = 16;

// Together the pauses outlast a hold of one second, which is what virus scanners and backups take.
template <typename Call>
Status TryAgainWhileBusy(IFileSystem& files, Call call) {
    Status status = call();
    for (unsigned tries = 1; tries < kTries && status == Status::Busy; ++tries) {
        files.Pause(25 * tries);
        status = call();
    }
    return status;
}

Status Read(IFileSystem& files, const std::wstring& path, std::string& bytes) {
    return TryAgainWhileBusy(files, [&] { return files.Read(path, bytes); });
}

// Null when the lock cannot be had. Short pauses to the end: processes that save often let go of it only for
// moments.
std::unique_ptr<IFileSystem::IFile> Lock(IFileSystem& files, const std::wstring& path) {
    std::unique_ptr<IFileSystem::IFile> lock;
    unsigned failures = 0;
    unsigned waited = 0;
    for (unsigned pause = 1; waited < kLockMilliseconds; pause = std::min(2 * pause, kLongestLockPause)) {
        const Status status = files.CreateLock(path, lock);
        // While another process is letting go of the lock a refusal can look like one for good, so that
        // counts from the third on.
        if (status == Status::Ok || status == Status::Missing ||
            (status == Status::Failed && ++failures == 3)) {
            break;
        }
        files.Pause(pause);
        waited += pause;
    }
    return lock;
}

bool WriteFlushed(IFileSystem& files, const std::wstring& path, std::string_view bytes) {
    std::unique_ptr<IFileSystem::IFile> file;
    return TryAgainWhileBusy(files, [&] { return files.Create(path, file); }) == Status::Ok &&
           file->Write(bytes) && file->Flush() && file->Close();
}

}  // namespace

ProfileRead ReadProfile(IFileSystem& files, const std::wstring& path) {
    std::string bytes;
    const Status status = Read(files, path, bytes);
    if (status != Status::Ok) {
        return {status, std::nullopt};
    }
    return {status, CPrivateProfile(std::move(bytes))};
}

bool EditProfile(IFileSystem& files, const std::wstring& path,
                 const std::function<void(CPrivateProfile&)>& edit) {
    if (path.empty()) {
        return false;
    }
    const auto lock = Lock(files, path + L".lock");
    if (!lock) {
        return false;
    }
    std::string old;
    const Status status = Read(files, path, old);
    if (status != Status::Ok && status != Status::Missing) {
        return false;
    }
    CPrivateProfile profile(old);
    edit(profile);
    const std::string bytes = profile.Serialise();
    if (status == Status::Ok && bytes == old) {
        return true;
    }
    return !files.IsReadOnly(path) && ReplaceFileBytes(files, path, bytes);
}

bool ReplaceFileBytes(IFileSystem& files, const std::wstring& path, std::string_view bytes) {
    const std::wstring fresh = path + L".tmp";
    if (WriteFlushed(files, fresh, bytes) &&
        TryAgainWhileBusy(files, [&] { return files.Replace(fresh, path); }) == Status::Ok) {
        return true;
    }
    files.Remove(fresh);
    return false;
}
