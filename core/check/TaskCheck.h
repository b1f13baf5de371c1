#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "core/schedule/ClockChanges.h"

class CSCVShchedulerTask;
struct Finding;
class IShell;

// The checks of single tasks, seen from one instant. Use one object for many tasks: it looks up the program
// of an extension and the clock changes of the year once.
class CTaskCheck {
public:
    // `shell` outlives the object.
    CTaskCheck(IShell& shell, std::int64_t now);

    // `stored` is the task's command line as the file holds it, without its outer quotes.
    void AddFindings(const CSCVShchedulerTask& task, std::wstring_view stored,
                     std::vector<Finding>& findings);

private:
    // Empty when nothing is wrong with the program that starts the project.
    const std::wstring& WhyNotStarted(const std::wstring& project);

    IShell& m_shell;
    std::int64_t m_now;
    std::vector<ClockChange> m_changes;
    std::map<std::wstring, std::wstring> m_whyNotStarted;  // by extension
};
