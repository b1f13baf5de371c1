#pragma once

#include <string>

// A console program run by a test, with what it wrote. Windows only.
struct ChildResult {
    unsigned exitCode;
    std::string out;  // as written, CR LF made LF
    std::string err;
};

// Runs an executable, named by its path from the test's own folder, and waits for its end; ends it after a
// minute. `words` is the rest of the command line as it stands. Raises std::runtime_error when it cannot be
// started or had to be ended. Several threads may call this at once.
[[nodiscard]] ChildResult RunChild(const std::wstring& executable, const std::wstring& words);
