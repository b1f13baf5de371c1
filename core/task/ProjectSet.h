#pragma once

#include <string>
#include <string_view>
#include <unordered_set>

class CSCVShchedulerTaskArray;

// The project paths of a list. Finding a path takes constant time, so adding many projects is fast. Case does
// not count, as in the array's FindTask.
class CProjectSet {
public:
    explicit CProjectSet(const CSCVShchedulerTaskArray& tasks);

    // False when the project was in the set already.
    bool Add(std::wstring_view projectPath);

private:
    std::unordered_set<std::wstring> m_paths;  // in upper case
};
