#pragma once

#include <cstdint>
#include <string>

// The extraction program started by its own button, without a project.

// Empty when what the shell answered to "open" is success (above 32), else what to tell the user.
[[nodiscard]] std::wstring DirectRunFailure(const std::wstring& programPath, std::intptr_t shellResult);
