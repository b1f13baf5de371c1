#pragma once

#include <string>

// Title and text of every dialog that is open on the desktop, one line each in UTF-8. Never waits for a
// program that does not respond.
[[nodiscard]] std::string DescribeOpenDialogs();
