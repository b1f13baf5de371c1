#pragma once

#include <cstdlib>

#include "core/platform/LocalTime.h"

// While the object exists this process is in another time zone. On Windows it does nothing: the zone stays
// the one in which the process was started.
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
