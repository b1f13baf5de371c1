#pragma once

#include <string>

// Looks up the program that opens files of an extension (without its dot). Kept wrong on purpose: for a
// registered extension it returns 0 and leaves `programPath` unchanged; otherwise it returns 1 with
// `programPath` as the look-up has left it, in practice empty. The checks of the two look-ups are inverted. A
// fix would start projects in programs that have never started them.
int GetAssociatedProgram(const std::wstring& extension, std::wstring& programPath);
