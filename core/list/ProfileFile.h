#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "core/list/PrivateProfile.h"
#include "core/platform/FileSystem.h"

// Private-profile files as a whole: read at once, replaced in one step. Where the file system lets the caller
// wait, a file that somebody holds is tried again for about a second; elsewhere each call is one try.

struct ProfileRead {
    // Missing when there is surely no such file; Busy or Failed when it is there and cannot be read.
    FileResult result;
    // Set when Ok.
    std::optional<CPrivateProfile> profile;
};

[[nodiscard]] ProfileRead ReadProfile(IFileSystem& files, const std::wstring& path);

// Takes the lock of the file (path + ".lock"; where waiting is allowed, for some seconds) and holds it while
// it reads the file afresh (a missing one is empty), lets `edit` change it and puts the result into its
// place. Other processes respect the lock. Whatever fails, at any moment, the file is the whole old or the
// whole new one.
//
// When the result is not Ok the old file stays: the path is empty, somebody has the lock, the file is there
// and cannot be read, is read-only or cannot be replaced. A text that `edit` leaves as it was counts as
// saved. What `edit` throws passes through.
//
// `stamp` receives the stamp of the file as it was saved; no other program has changed it before that.
[[nodiscard]] FileResult LockAndEditProfile(IFileSystem& files, const std::wstring& path,
                                            const std::function<void(CPrivateProfile&)>& edit,
                                            std::optional<FileStamp>* stamp = nullptr);

// Takes a lock file, see IFileSystem::CreateLock; where waiting is allowed, for some seconds.
[[nodiscard]] FileResult TakeLock(IFileSystem& files, const std::wstring& path,
                                  std::unique_ptr<IFileSystem::IFile>& lock);

// Puts a file with these bytes into the place of `path` in one step, whatever stood there. When that fails
// nothing has changed.
[[nodiscard]] FileResult ReplaceFileBytes(IFileSystem& files, const std::wstring& path,
                                          std::string_view bytes);
