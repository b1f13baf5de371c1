#pragma once

#include <cstddef>
#include <string>

// Reading and writing whole text files. When a file cannot be opened, a message box shows the system's reason
// with Retry and Cancel, until the user cancels or the file opens. Files are opened without sharing.

// The text of a file: UTF-16LE if it begins with that byte-order mark (an odd last byte is dropped),
// otherwise UTF-8 up to its first zero byte. A byte-order mark stays in the text as its first character.
// Empty also when the user cancels. Throws std::runtime_error when reading fails and std::bad_alloc for a
// file of 2 GB or more; of a length of 4 GB or more only the low 32 bits count.
[[nodiscard]] std::wstring ReadTextFile(const std::wstring& path);

// Writes the text up to its first zero as UTF-8 without a byte-order mark; see WriteBytesToFile. Throws what
// EncodeCodePage throws.
int SaveTextFile(const std::wstring& text, const std::wstring& path, bool append);

// Writes a file, or appends to it, and creates missing folders. 1 when everything is written. 0 when the user
// cancelled, with the file unchanged, or when writing failed: a message box has then shown the reason, and
// the file can be incomplete.
int WriteBytesToFile(const void* data, std::size_t length, const std::wstring& path, bool append);
