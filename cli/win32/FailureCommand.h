#pragma once

#include <vector>

#include "cli/commands/Context.h"
#include "util/win32/Handle.h"

// Starts the command without a window. Commands that are still running when the object is destroyed continue.
class CFailureCommand final : public IFailureCommand {
public:
    [[nodiscard]] std::wstring Start(const std::wstring& command, const std::wstring& project,
                                     const std::wstring& result) override;
    [[nodiscard]] std::vector<std::uint32_t> TakeFailures() override;

private:
    std::vector<CKernelHandle> m_running;
};
