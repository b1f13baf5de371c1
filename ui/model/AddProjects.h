#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class CSCVShchedulerTaskArray;

// Adding projects to the list, by the Add button and by dropping.

struct stAddedProjects {
    // The project whose row to select: the last path given, whether it was listed before or not. May be
    // empty.
    std::wstring selectPath;
    // True when these are the first projects of the list. The program should then start with Windows.
    bool isFirstOfList = false;
};

// Calls AddNewProjects for the paths.
stAddedProjects AddProjects(CSCVShchedulerTaskArray& tasks, const std::vector<std::wstring>& projectPaths,
                            std::int64_t now);

// Whether dropping this file adds it. Dropping ignores the projects of the other extraction program on
// purpose, although the Add button accepts them.
[[nodiscard]] bool AcceptsDrop(std::wstring_view path);
