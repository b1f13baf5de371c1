#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "core/list/PrivateProfile.h"
#include "core/platform/FileSystem.h"

// Private-profile files as a whole: read at once, replaced in one step. A file that somebody holds is tried
// again for about a second before a call gives up.

struct ProfileRead {
    // Missing when there is surely no such file; Busy or Failed when it is there and cannot be read.
    IFileSystem::Status status = IFileSystem::Status::Failed;
    // Set when Ok.
    std::optional<CPrivateProfile> profile;
};

[[nodiscard]] ProfileRead ReadProfile(IFileSystem& files, const std::wstring& path);

// Reads the file afresh (a missing one is empty), lets `edit` change it and puts the result into its place,
// all under a lock (path + ".lock", waited for for some seconds) that other processes respect. Whatever
// fails, at any moment, the file is the whole old or the whole new one.
//
// False, and the old file stays, when the path is empty, when the file is there and cannot be read, is
// read-only or cannot be replaced. A text that `edit` leaves as it was counts as saved. What `edit` raises
// passes through.
[[nodiscard]] bool EditProfile(IFileSystem& files, const std::wstring& path,
                               const std::function<void(CPrivateProfile&)>& edit);

// Puts a file with these bytes into the place of `path` in one step, whatever stood there. False when that
// failed: then nothing has changed.
[[nodiscard]] bool ReplaceFileBytes(IFileSystem& files, const std::wstring& path, std::string_view bytes);
