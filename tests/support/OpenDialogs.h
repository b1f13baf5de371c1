#pragma once

#include <string>

// Title and text of every dialog that is open on the desktop, one line each in UTF-8; never waits for a
// program that does not answer.
[[nodiscard]] std::string DescribeOpenDialogs();
