#pragma once

#include <cstddef>
#include <string>

// The functions of util/TextFile.h with the program's message box.
[[nodiscard]] std::wstring ReadTextFile(const std::wstring& path);
int SaveTextFile(const std::wstring& text, const std::wstring& path, bool append);
int WriteBytesToFile(const void* data, std::size_t length, const std::wstring& path, bool append);
