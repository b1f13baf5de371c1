#pragma once

#include <string>

// The running program's file version as "major.minor.build" (the fourth number is left out), or the empty
// text when it has none.
[[nodiscard]] std::wstring GetFileVersionString();
