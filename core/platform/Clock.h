#pragma once

#include <cstdint>

// Source of the current time. Instants are signed seconds since 1970-01-01 UTC.
class IClock {
public:
    IClock() = default;
    IClock(const IClock&) = delete;
    IClock& operator=(const IClock&) = delete;
    virtual ~IClock() = default;

    [[nodiscard]] virtual std::int64_t Now() const = 0;
};

// The machine's clock. Nothing else reads it.
class CSystemClock final : public IClock {
public:
    [[nodiscard]] std::int64_t Now() const override;
};
