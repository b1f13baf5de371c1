#include <gmock/gmock.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <string>
#include <thread>

#include "core/LocalTime.h"
#ifdef _WIN32
#include "tests/support/HeapChecks.h"
#include "tests/support/OpenDialogs.h"
#include "util/ProcessHardening.h"
#else
static std::string DescribeOpenDialogs() {
    return {};
}
#endif

namespace {

using std::chrono::steady_clock;

// Ends the process, with a failure code and the test's name, when one test takes longer than SCV_TEST_TIMEOUT
// seconds (120 when that is unset or no number above zero): a dialog that nobody answers would wait for ever.
class Watchdog final : public testing::EmptyTestEventListener {
public:
    Watchdog() {
        std::thread([this] {
            for (;; std::this_thread::sleep_for(std::chrono::milliseconds(200))) {
                if (steady_clock::now().time_since_epoch() > m_deadline.load()) {
                    const testing::TestInfo& test = *m_test.load();
                    std::cout << "\n[  HANGS   ] " << test.test_suite_name() << '.' << test.name() << "\n"
                              << DescribeOpenDialogs() << std::flush;
                    std::_Exit(3);
                }
            }
        }).detach();
    }
    void OnTestStart(const testing::TestInfo& test) override {
        const char* const text = std::getenv("SCV_TEST_TIMEOUT");
        const long seconds = text == nullptr ? 0 : std::strtol(text, nullptr, 10);
        m_test = &test;
        m_deadline =
            (steady_clock::now() + std::chrono::seconds(seconds > 0 ? seconds : 120)).time_since_epoch();
    }
    void OnTestEnd(const testing::TestInfo&) override { m_deadline = steady_clock::duration::max(); }

private:
    std::atomic<const testing::TestInfo*> m_test = nullptr;
    std::atomic<steady_clock::duration> m_deadline = steady_clock::duration::max();
};

}  // namespace

#ifdef _WIN32
int wmain(int argc, wchar_t** argv) {
    HardenProcess();
#else
int main(int argc, char** argv) {
#endif
    RefreshTimeZone();
    testing::InitGoogleMock(&argc, argv);
    static Watchdog watchdog;  // is read until the process is gone
    testing::UnitTest::GetInstance()->listeners().Append(&watchdog);
#ifdef _WIN32
    testing::UnitTest::GetInstance()->listeners().Append(new HeapChecks);
#endif
    const int result = RUN_ALL_TESTS();
    testing::UnitTest::GetInstance()->listeners().Release(&watchdog);
    return result;
}
