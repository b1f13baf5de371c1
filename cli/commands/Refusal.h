#pragma once

#include <stdexcept>
#include <string>

#include "cli/commands/ExitCode.h"

// Why a command changes nothing: one sentence in UTF-8, and what the process answers.
class CRefusal final : public std::runtime_error {
public:
    explicit CRefusal(const std::string& sentence, ExitCode exitCode = kUsage)
        : std::runtime_error(sentence), m_exitCode(exitCode) {}

    [[nodiscard]] ExitCode Code() const noexcept { return m_exitCode; }

private:
    ExitCode m_exitCode;
};
