#pragma once

#include <string>
#include <string_view>
#include <unordered_set>

class CSCVShchedulerTaskArray;

// The project paths of a list. Looking a project up costs the same however long the list is, so that many
// projects can be added one after the other. Case does not count, as in the array's FindTask.
class CProjectSet {
public:
    explicit CProjectSet(const CSCVShchedulerTaskArray& tasks);

    // False when the project was in the set already.
    bool Add(std::wstring_view projectPath);

private:
    std::unordered_set<std::wstring> m_paths;  // in upper case
};
