#pragma once

#ifndef _WIN32

#include <cstdlib>

#include "core/LocalTime.h"

// Puts this process into a time zone until the object goes. On Windows the zone is the system's and stays.
class CLocalZone {
public:
    explicit CLocalZone(const char* name) {
        setenv("TZ", name, 1);
        RefreshTimeZone();
    }
    CLocalZone(const CLocalZone&) = delete;
    CLocalZone& operator=(const CLocalZone&) = delete;
    ~CLocalZone() {
        unsetenv("TZ");
        RefreshTimeZone();
    }
};

#endif
