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

// Takes the lock of the file (path + ".lock"; where waiting is allowed, for some seconds) and holds it while
// it reads the file afresh (a missing one is empty), lets `edit` change it and puts the result into its
// place. All processes of the program respect the lock. Whatever fails, at any moment, the file holds the
// whole old or the whole new text.
//
// A symbolic link stays one: all this happens to the file that it points to, whose lock is beside that file.
//
// When the result is not Ok the old file stays: the path is empty or a link without a target, somebody has
// the lock, the file is there and cannot be read, is read-only or cannot be replaced. A text that `edit`
// leaves as it was counts as saved, and a missing file then stays missing. What `edit` throws passes through.
//
// `stamp` receives the stamp of the saved file, taken under the lock.
[[nodiscard]] FileResult LockAndEditProfile(IFileSystem& files, const std::wstring& path,
                                            const std::function<void(CPrivateProfile&)>& edit,
                                            std::optional<FileStamp>* stamp = nullptr);

// The path of a lock file beside the file: its path + `ending`. Where `path` is a symbolic link the lock file
// is beside the target, because another program may know the file by its own path or by another link.
[[nodiscard]] std::wstring LockPath(IFileSystem& files, const std::wstring& path, const wchar_t* ending);

// Takes a lock file, see IFileSystem::CreateLock; where waiting is allowed, for some seconds.
[[nodiscard]] FileResult TakeLock(IFileSystem& files, const std::wstring& path,
                                  std::unique_ptr<IFileSystem::IFile>& lock);

// Creates the file, or replaces it, in one step. A failure changes nothing.
[[nodiscard]] FileResult ReplaceFileBytes(IFileSystem& files, const std::wstring& path,
                                          std::string_view bytes);
