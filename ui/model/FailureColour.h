#pragma once

#include <cstdint>
#include <string_view>

// How the project list shows that a run failed.

// Whether a task's last result is a failure; a task that never ran has none.
[[nodiscard]] bool IsFailure(std::wstring_view lastRunResult) noexcept;

// The text colour of such a row. Colours are 0x00BBGGRR. With high contrast it is the system's colour
// `hotLight`, which is legible in the user's scheme; otherwise a red that is legible on `background`.
[[nodiscard]] std::uint32_t FailureColour(bool isHighContrast, std::uint32_t hotLight,
                                          std::uint32_t background);
