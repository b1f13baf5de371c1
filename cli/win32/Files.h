#pragma once

#include <string>
#include <vector>

// The path as it is when it cannot be made full.
[[nodiscard]] std::wstring FullPath(const std::wstring& path);
// As Context::findFiles has to be.
[[nodiscard]] std::vector<std::wstring> FindFiles(const std::wstring& pattern);
