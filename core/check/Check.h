#pragma once

#include <cstdint>
#include <string>
#include <vector>

class CPrivateProfile;
class CSCVShchedulerTask;
class CSCVShchedulerTaskArray;
class IShell;

// A problem: something that will not work or will not survive in the file.
struct Finding {
    std::wstring project;  // empty for a finding about the list itself
    std::wstring section;
    std::wstring message;  // a sentence without a full stop
};

// All findings about a list seen from `now`. `profile` is its text, `tasks` what was loaded from it. Checks
// whether the files of projects and programs exist.
[[nodiscard]] std::vector<Finding> FindProblems(const CPrivateProfile& profile,
                                                const CSCVShchedulerTaskArray& tasks, IShell& shell,
                                                std::int64_t now);

// The findings about one task. Without the list file, it does not detect that loading has cut the stored
// command line or shifted its fields.
[[nodiscard]] std::vector<Finding> FindProblemsOf(const CSCVShchedulerTask& task,
                                                  const CSCVShchedulerTaskArray& tasks, IShell& shell,
                                                  std::int64_t now);
