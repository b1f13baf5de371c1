#pragma once

#include <cstdint>

// The text colour of a row whose last run failed. Colours are 0x00BBGGRR. With high contrast it is the
// system's colour `hotLight`, which is legible in the user's scheme; otherwise a red that is legible on
// `background`.
[[nodiscard]] std::uint32_t FailureColour(bool isHighContrast, std::uint32_t hotLight,
                                          std::uint32_t background);
