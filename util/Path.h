#pragma once

#include <string>
#include <string_view>

// Functions on path texts; none accesses the file system. Backslashes separate folders; only GetFileExtension
// also accepts a forward slash.

// What follows the last backslash; the whole path when there is none.
[[nodiscard]] std::wstring GetFileName(std::wstring_view path);

// Up to and including the last backslash; empty when there is none.
[[nodiscard]] std::wstring GetFolderPath(std::wstring_view path);

// As GetFolderPath without its trailing backslashes: "C:\" gives "C:".
[[nodiscard]] std::wstring GetFolderPathNoSlash(std::wstring_view path);

// What follows the last dot of the name, case kept; empty when there is no dot. A forward slash separates
// folders when the path has no backslash, and in every path it ends the extension: "C:\x\page.php/y" gives
// "php".
[[nodiscard]] std::wstring GetFileExtension(std::wstring_view path);

// The name without folder and extension, but the whole path, folder included, when the name has no extension.
// The order of the project list depends on this difference.
[[nodiscard]] std::wstring StripFileExtension(std::wstring_view path);
