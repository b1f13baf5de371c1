#pragma once

#include <stdexcept>
#include <string>

// The process's exit code.
enum ExitCode : int {
    kFine = 0,
    kFindings = 1,  // findings, failed launches, or a list that is in use or cannot be written
    kUsage = 2,
    kNoList = 3,  // the list file is missing or unreadable
};

// Thrown to refuse a subcommand: the reason as one sentence in UTF-8, and the exit code.
class CRefusal final : public std::runtime_error {
public:
    explicit CRefusal(const std::string& sentence, ExitCode exitCode = kUsage)
        : std::runtime_error(sentence), m_exitCode(exitCode) {}

    [[nodiscard]] ExitCode Code() const noexcept { return m_exitCode; }

private:
    ExitCode m_exitCode;
};
