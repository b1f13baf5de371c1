#pragma once

#include <string>
#include <vector>

// The full path; `path` itself when there is none.
[[nodiscard]] std::wstring FullPath(const std::wstring& path);
// Implements Context::findFiles.
[[nodiscard]] std::vector<std::wstring> FindFiles(const std::wstring& pattern);
