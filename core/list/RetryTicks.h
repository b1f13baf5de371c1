#pragma once

#include <algorithm>

// When something that failed is tried again, counted in the ticks of a timer: no clock that is set back can
// delay it. After the first failure the next tick tries again, after every further one the second next.
//
//     failure, tick (try, failure), tick, tick (try, failure), tick, tick (try, success)
class CRetryTicks {
public:
    // To be called once a tick, while something waits: whether this tick is to try.
    [[nodiscard]] bool IsTryDue() noexcept {
        m_left = std::max(m_left - 1, 0);
        return m_left == 0;
    }
    void OnFailure() noexcept {
        m_distance = std::min(m_distance + 1, kLongestDistance);
        m_left = m_distance;
    }
    void OnSuccess() noexcept { m_distance = m_left = 0; }

private:
    // A file that is free again is used within two ticks.
    static constexpr int kLongestDistance = 2;

    int m_distance = 0;  // ticks between two tries, at present
    int m_left = 0;      // ticks until the next one
};
