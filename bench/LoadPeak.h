#pragma once

#include <string>
#include <string_view>

// The heap that CPrivateProfile needs while it is made of a text. A program with this source counts every
// `new` and `delete`.

// The most bytes held at a time, the text included, by the bytes of the text.
[[nodiscard]] double PeakOfLoad(std::string text);

// Texts of 64 MB for it: a piece again and again, and sections of different short names.
[[nodiscard]] std::string Repeated(std::string_view piece);
[[nodiscard]] std::string ManyShortNames();
