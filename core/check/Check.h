#pragma once

#include <cstdint>
#include <string>
#include <vector>

class CPrivateProfile;
class CSCVShchedulerTaskArray;
class IShell;

// Something that will not work, or will not survive in the file.
struct Finding {
    std::wstring project;  // empty for a finding about the list itself
    std::wstring section;
    std::string message;  // a sentence without a full stop, in UTF-8
};

// All findings about a list seen from `now`: `profile` is its text and `tasks` what was loaded from it. Tasks
// are as before on return.
[[nodiscard]] std::vector<Finding> FindProblems(const CPrivateProfile& profile,
                                                CSCVShchedulerTaskArray& tasks, IShell& shell,
                                                std::int64_t now);
