#pragma once

#include <string>

// The program that opens files of an extension (without its dot), with the result that every version of this
// program has returned: 0, with `programPath` unchanged, for an extension that is registered; else 1, with
// `programPath` as the look-up has left it, in practice empty. The tests of the two look-ups are inverted on
// purpose: with a fix, projects would start in programs that never started them.
int GetAssociatedProgram(const std::wstring& extension, std::wstring& programPath);
