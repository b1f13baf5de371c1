#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class CSCVShchedulerTaskArray;

// How projects come into the list by the Add button and by dropping.

struct stAddedProjects {
    std::wstring
        selectPath;  // the last path given, whether listed before or not: the row to select; may be empty
    bool isFirstOfList =
        false;  // an empty list is so no longer: the program is to start with Windows from now on
};

// AddNewProjects for the paths.
stAddedProjects AddProjects(CSCVShchedulerTaskArray& tasks, const std::vector<std::wstring>& projectPaths,
                            std::int64_t now);

// Whether dropping this file adds it. The sibling program's projects are not accepted by drop, on purpose,
// although the Add button offers them.
[[nodiscard]] bool AcceptsDrop(std::wstring_view path);
