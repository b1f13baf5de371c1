#include "tests/support/Watchdog.h"

#include <cstdlib>
#include <iostream>
#include <utility>

namespace {

std::chrono::seconds Limit() {
    const char* const text = std::getenv("SCV_TEST_TIMEOUT");
    const long seconds = text == nullptr ? 0 : std::strtol(text, nullptr, 10);
    return std::chrono::seconds(seconds > 0 ? seconds : 120);
}

}  // namespace

Watchdog::Watchdog(std::function<std::string()> describe)
    : m_describe(std::move(describe)), m_limit(Limit()), m_thread([this] { Watch(); }) {}

Watchdog::~Watchdog() {
    {
        const std::lock_guard lock(m_mutex);
        m_stop = true;
    }
    m_changed.notify_one();
    m_thread.join();
}

void Watchdog::OnTestStart(const testing::TestInfo& test) {
    const std::lock_guard lock(m_mutex);
    m_test = std::string(test.test_suite_name()) + '.' + test.name();
    ++m_turn;
    m_changed.notify_one();
}

void Watchdog::OnTestEnd(const testing::TestInfo&) {
    const std::lock_guard lock(m_mutex);
    m_test.clear();
    ++m_turn;
    m_changed.notify_one();
}

void Watchdog::Watch() {
    std::unique_lock lock(m_mutex);
    while (!m_stop) {
        const unsigned turn = m_turn;
        const auto moved = [&] { return m_stop || m_turn != turn; };
        if (m_test.empty()) {
            m_changed.wait(lock, moved);
        } else if (!m_changed.wait_for(lock, m_limit, moved)) {
            std::cout << "\n[  HANGS   ] " << m_test << " has not ended after " << m_limit.count()
                      << " seconds\n"
                      << m_describe() << std::flush;
            std::_Exit(3);
        }
    }
}
