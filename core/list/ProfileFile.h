#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "core/list/PrivateProfile.h"
#include "core/platform/FileSystem.h"

// Reads and replaces private-profile files as a whole. Where the file system lets the caller wait, a file
// that another program holds is tried again for about a second; elsewhere each call is one try.

struct ProfileRead {
    // Missing when there is no such file; Busy or Failed when it exists and cannot be read.
    FileResult result;
    // Set when Ok.
    std::optional<CPrivateProfile> profile;
};

[[nodiscard]] ProfileRead ReadProfile(IFileSystem& files, const std::wstring& path);

// Takes the lock of the file (path + ".lock"; waits for it for up to ten seconds where waiting is allowed).
// Under the lock it reads the file again (a missing one is empty), lets `edit` change the text and replaces
// the file atomically. All processes of the program respect the lock. Whatever fails, at any moment the file
// holds the whole old or the whole new text.
//
// For a symbolic link all this applies to its target: the link stays, and the lock is beside the target.
//
// When the result is not Ok, the old file stays: the path is empty or a link without a target, another
// process has the lock, or the file cannot be read, is read-only or cannot be replaced. If `edit` changes
// nothing, the file is not written (a missing one stays missing) and the result is Ok. Exceptions of `edit`
// pass through.
//
// `stamp` receives the stamp of the saved file, taken under the lock.
[[nodiscard]] FileResult LockAndEditProfile(IFileSystem& files, const std::wstring& path,
                                            const std::function<void(CPrivateProfile&)>& edit,
                                            std::optional<FileStamp>* stamp = nullptr);

// The path of a lock file beside the file: its path + `ending`. Where `path` is a symbolic link the lock file
// is beside the target, because another program may know the file by its own path or by another link.
[[nodiscard]] std::wstring LockPath(IFileSystem& files, const std::wstring& path, const wchar_t* ending);

// Takes a lock file, see IFileSystem::CreateLock. Waits for it for up to ten seconds where waiting is
// allowed.
[[nodiscard]] FileResult TakeLock(IFileSystem& files, const std::wstring& path,
                                  std::unique_ptr<IFileSystem::IFile>& lock);

// Creates the file or replaces it atomically. A failure changes nothing.
[[nodiscard]] FileResult ReplaceFileBytes(IFileSystem& files, const std::wstring& path,
                                          std::string_view bytes);
