#include "core/list/ProfileFile.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace {

using Status = FileResult::Status;
using FilePtr = std::unique_ptr<IFileSystem::IFile>;

constexpr unsigned kTries = 11;
constexpr unsigned kLockMilliseconds = 10'000;
constexpr unsigned kLongestLockPause = 16;

// The pauses add up to more than one second: virus scanners and backups keep a file open that long.
template <typename Call>
FileResult TryAgainWhileBusy(IFileSystem& files, Call call) {
    FileResult result = call();
    for (unsigned tries = 1; tries < kTries && result == Status::Busy && files.Pause(25 * tries); ++tries) {
        result = call();
    }
    return result;
}

FileResult Read(IFileSystem& files, const std::wstring& path, std::string& bytes) {
    return TryAgainWhileBusy(files, [&] { return files.Read(path, bytes); });
}

FileResult WriteFlushed(IFileSystem& files, const std::wstring& path, std::string_view bytes) {
    FilePtr file;
    FileResult result = TryAgainWhileBusy(files, [&] { return files.Create(path, file); });
    if (result) {
        result = file->Write(bytes);
    }
    if (result) {
        result = file->Flush();
    }
    return result ? file->Close() : result;
}

}  // namespace

ProfileRead ReadProfile(IFileSystem& files, const std::wstring& path) {
    std::string bytes;
    FileResult result = Read(files, path, bytes);
    if (!result) {
        return {std::move(result), std::nullopt};
    }
    return {std::move(result), CPrivateProfile(std::move(bytes))};
}

std::wstring LockPath(IFileSystem& files, const std::wstring& path, const wchar_t* ending) {
    std::wstring file;
    return (files.ResolveLink(path, file) ? file : path) + ending;
}

// The pauses stay short: a process that saves often releases the lock only for moments.
FileResult TakeLock(IFileSystem& files, const std::wstring& path, FilePtr& lock) {
    unsigned failures = 0;
    unsigned waited = 0;
    for (unsigned pause = 1;; pause = std::min(2 * pause, kLongestLockPause)) {
        FileResult result = files.CreateLock(path, lock);
        // While another process is releasing the lock, Windows can report another error than "in use". Such a
        // failure counts from the third time on.
        const bool isAgain = result == Status::Failed && ++failures < 3;
        if ((!isAgain && result != Status::Busy) || waited >= kLockMilliseconds) {
            return result;
        }
        if (!files.Pause(pause) && !isAgain) {
            return result;
        }
        waited += pause;
    }
}

FileResult LockAndEditProfile(IFileSystem& files, const std::wstring& path,
                              const std::function<void(CPrivateProfile&)>& edit,
                              std::optional<FileStamp>* stamp) {
    if (path.empty()) {
        return {.status = Status::Missing};
    }
    std::wstring file;
    if (FileResult resolved = files.ResolveLink(path, file); !resolved) {
        return resolved;
    }
    FilePtr lock;
    if (FileResult locked = TakeLock(files, file + L".lock", lock); !locked) {
        return locked;
    }
    std::string old;
    FileResult read = Read(files, file, old);
    if (!read && read != Status::Missing) {
        return read;
    }
    CPrivateProfile profile(std::move(old));
    edit(profile);
    FileResult saved;
    if (profile.IsEdited()) {
        saved = files.IsReadOnly(file) ? FileResult{Status::ReadOnly, 0, file}
                                       : ReplaceFileBytes(files, file, profile.Serialise());
    }
    if (saved && stamp != nullptr) {
        *stamp = files.Stamp(file);
    }
    return saved;
}

FileResult ReplaceFileBytes(IFileSystem& files, const std::wstring& path, std::string_view bytes) {
    const std::wstring fresh = path + L".tmp";
    FileResult result = WriteFlushed(files, fresh, bytes);
    if (result) {
        result = TryAgainWhileBusy(files, [&] { return files.Replace(fresh, path); });
    }
    if (!result) {
        files.Remove(fresh);
    }
    return result;
}
