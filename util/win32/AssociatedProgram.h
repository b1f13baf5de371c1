#pragma once

#include <string>

// The program that opens files of an extension (without its dot), as every version of this program has
// answered it: an extension that is registered gives 0 and leaves `programPath` alone; for one that is not,
// the result is 1 and `programPath` what the walk found, in practice nothing. The tests of the two look-ups
// are the wrong way round on purpose: mended, projects would start in programs that never started them.
int GetAssociatedProgram(const std::wstring& extension, std::wstring& programPath);
