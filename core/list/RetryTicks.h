#pragma once

#include <algorithm>

// Decides in which ticks of a timer a failed action is tried again: in the next tick after the first failure,
// in the second next after each further one. It counts ticks, so setting the clock back cannot delay a try.
//
//     failure, tick (try, failure), tick, tick (try, failure), tick, tick (try, success)
class CRetryTicks {
public:
    // Call it once in each tick while an action is pending: returns whether to try now.
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
