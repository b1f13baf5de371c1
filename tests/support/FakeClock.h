#pragma once

#include "core/platform/Clock.h"

class FakeClock final : public IClock {
public:
    explicit FakeClock(std::int64_t instant = 0) : now(instant) {}
    [[nodiscard]] std::int64_t Now() const override { return now; }

    std::int64_t now;
};
