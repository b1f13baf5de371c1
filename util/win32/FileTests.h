#pragma once

#include <string>
#include <string_view>

// Tests of files and folders. A failure is only visible in the result.

// Non-zero for a file or a folder; wildcards in the last part match as in a search.
[[nodiscard]] int FileExists(const std::wstring& path);

// 16 for a folder, with or without backslashes at its end; else 0.
[[nodiscard]] int DirectoryExists(std::wstring path);

// Whether the path leads to another machine: a UNC path, or one on a network drive. Contacts no other
// machine, which could take seconds.
[[nodiscard]] bool IsRemotePath(std::wstring_view path);

// 1 when the file exists and can be opened for writing without sharing, so that nobody else has it open; else
// 0. Creates nothing.
[[nodiscard]] int CanOpenForWriting(const std::wstring& path);
