#pragma once

#include <string>
#include <vector>

// The path as it is when it cannot be made full.
[[nodiscard]] std::wstring FullPath(const std::wstring& path);
// As Context::findFiles and Context::fileStamp have to be.
[[nodiscard]] std::vector<std::wstring> FindFiles(const std::wstring& pattern);
[[nodiscard]] std::string StampOf(const std::wstring& file);
