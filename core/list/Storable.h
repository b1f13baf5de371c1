#pragma once

#include <string>
#include <string_view>

class CSCVShchedulerTask;

// Why the list file would change this task, in a few words; empty when the file keeps it as it is. The file
// has no escapes: quotes, overlong texts and control characters do not survive in it. Apostrophes count as
// surviving although the file doubles them; see HoldsApostrophe.
[[nodiscard]] std::wstring WhyNotStorable(const CSCVShchedulerTask& task);

// Whether the task's command line holds an apostrophe, which the file doubles, so that a project or file of
// that name would not be found again.
[[nodiscard]] bool HoldsApostrophe(const CSCVShchedulerTask& task);

// A text as the file holds it: each apostrophe twice.
void AppendDoubledApostrophes(std::wstring_view text, std::wstring& doubled);
[[nodiscard]] std::wstring DoubledApostrophes(std::wstring_view text);

// The same for all spellings of a project's path in memory and in the file: in upper case, and each row of
// apostrophes as one.
[[nodiscard]] std::wstring ProjectKey(std::wstring_view path);

// A text without the doubling: each row of apostrophes half as long, rounded up.
[[nodiscard]] std::wstring HalvedApostrophes(const std::wstring& text);
