#pragma once

#include <cstdlib>

#include "core/platform/LocalTime.h"

// Puts this process into a time zone until the object goes. On Windows the zone stays the one that the
// process was started in.
class CLocalZone {
public:
    explicit CLocalZone([[maybe_unused]] const char* name) {
#ifndef _WIN32
        setenv("TZ", name, 1);
        RefreshTimeZone();
#endif
    }
    CLocalZone(const CLocalZone&) = delete;
    CLocalZone& operator=(const CLocalZone&) = delete;
#ifdef _WIN32
    ~CLocalZone() = default;
#else
    ~CLocalZone() {
        unsetenv("TZ");
        RefreshTimeZone();
    }
#endif
};
