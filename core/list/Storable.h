#pragma once

#include <string>
#include <string_view>

class CSCVShchedulerTask;

// Why the list file would change this task, in a few words; empty when the file keeps it as it is. The file
// has no escapes: quotes, overlong texts and control characters do not survive in it. Apostrophes count as
// surviving although the file doubles them; see HoldsApostrophe.
[[nodiscard]] std::wstring WhyNotStorable(const CSCVShchedulerTask& task);

// Whether the task's command line contains an apostrophe. The file doubles it, so a project or file of that
// name would not be found again.
[[nodiscard]] bool HoldsApostrophe(const CSCVShchedulerTask& task);

// The text as the file holds it, with each apostrophe doubled.
void AppendDoubledApostrophes(std::wstring_view text, std::wstring& doubled);
[[nodiscard]] std::wstring DoubledApostrophes(std::wstring_view text);

// The same for all spellings of a project's path in memory and in the file: in upper case, and each row of
// apostrophes as one.
[[nodiscard]] std::wstring ProjectKey(std::wstring_view path);
// Whether both paths have the same ProjectKey. Fast enough to compare a path with a whole list.
[[nodiscard]] bool IsSameProject(std::wstring_view left, std::wstring_view right);

// The text with each sequence of apostrophes half as long, rounded up.
[[nodiscard]] std::wstring HalvedApostrophes(const std::wstring& text);
