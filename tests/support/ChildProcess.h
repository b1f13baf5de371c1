#pragma once

#include <string>

struct ChildResult {
    unsigned exitCode;
    std::string out;  // what it wrote, CR LF made LF
    std::string err;
};

// Runs an executable, named by its path from the test's own folder, with the rest of its command line, for a
// minute at most. Raises std::runtime_error when it cannot be started or had to be ended. Thread-safe.
[[nodiscard]] ChildResult RunChild(const std::wstring& executable, const std::wstring& words);
