#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

// Ends the process, with a failure code and the test's name, when one test takes longer than SCV_TEST_TIMEOUT
// seconds (120 when that is unset or no number above zero). Added to the test listeners, which own it.
class Watchdog final : public testing::EmptyTestEventListener {
public:
    // `describe` says what the process may be waiting for; called on the watchdog's own thread.
    explicit Watchdog(std::function<std::string()> describe);
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;
    ~Watchdog() override;

    void OnTestStart(const testing::TestInfo& test) override;
    void OnTestEnd(const testing::TestInfo& test) override;

private:
    void Watch();

    const std::function<std::string()> m_describe;
    const std::chrono::seconds m_limit;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_stop = false;
    unsigned m_turn = 0;  // counts starts and ends
    std::string m_test;   // empty between tests
    std::thread m_thread;
};
