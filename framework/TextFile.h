#pragma once

#include <cstddef>
#include <string>

// Whole text files, with a user who can remove what keeps one from opening: a message box shows the system's
// reason with Retry and Cancel for as long as the user asks for another try. Files are opened for this
// program alone.

// The text of a file: UTF-16LE if it begins with that byte-order mark, which stays as the first character (an
// odd last byte is dropped); otherwise UTF-8 up to its first zero byte, where a byte-order mark stays as
// well. The empty text also when the user cancels. Throws std::runtime_error when reading fails and
// std::bad_alloc for a file too large; of one of 4 GB and more the length's low 32 bits are read.
[[nodiscard]] std::wstring ReadTextFile(const std::wstring& path);

// Writes the text up to its first zero as UTF-8 without a byte-order mark; see WriteBytesToFile. Throws what
// EncodeCodePage throws.
int SaveTextFile(const std::wstring& text, const std::wstring& path, bool append);

// Writes a file, or adds to its end, and makes the folders that are missing. 1 when everything is written. 0
// when the user cancelled, or when writing failed: then a box has shown the reason, and the file is
// unchanged.
int WriteBytesToFile(const void* data, std::size_t length, const std::wstring& path, bool append);
