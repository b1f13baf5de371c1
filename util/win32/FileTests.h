#pragma once

#include <string>
#include <string_view>

// Tests of files and folders. The result is the only report of a failure.

// Non-zero for a file or a folder; wildcards in the last part match as in a search.
[[nodiscard]] int FileExists(const std::wstring& path);

// 16 for a folder, with or without backslashes at its end; else 0.
[[nodiscard]] int DirectoryExists(std::wstring path);

// Whether the path leads to another machine: a UNC path, or one on a connected drive. Asks no other machine,
// which may take seconds to answer.
[[nodiscard]] bool IsRemotePath(std::wstring_view path);

// 1 when the existing file could be opened for writing with nobody else having it open, else 0. Creates
// nothing.
[[nodiscard]] int CanOpenForWriting(const std::wstring& path);
