#pragma once

#include <cstddef>
#include <functional>
#include <iosfwd>
#include <string>

#include "core/platform/Platform.h"

// What a command works with. Owns nothing.
struct Context {
    const CPlatform& platform;
    std::wstring list;  // full path of the task list file
    std::istream& in;   // bytes as they come
    std::ostream& out;  // UTF-8
    std::ostream& err;
    std::size_t width;  // columns of the terminal
    std::function<std::string()>
        whyNotToLaunch;  // a sentence when somebody else runs this list's tasks, else empty
    std::function<std::string()>
        whyNotToEdit;  // a sentence when somebody else may be using this list's tasks, else empty
    std::function<bool(unsigned ms)>
        waitForStop;  // true as soon as the user wants to end, false after the time
};
