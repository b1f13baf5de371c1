#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "util/Utf8.h"

// The fuzzer's bytes as text: UTF-8, so that corpus files can be read.
inline std::wstring TextOf(const std::uint8_t* data, std::size_t size) {
    return FromUtf8({reinterpret_cast<const char*>(data), size});
}

// Ends the run; the fuzzer reports it as a finding.
inline void Require(bool condition) {
    if (!condition) {
        std::abort();
    }
}
