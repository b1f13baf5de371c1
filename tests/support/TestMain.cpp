#include <gmock/gmock.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <string>
#include <thread>

#include "core/platform/LocalTime.h"
#ifdef _WIN32
#include "tests/support/HeapChecks.h"
#include "tests/support/OpenDialogs.h"
#include "util/win32/ProcessHardening.h"
#else
static std::string DescribeOpenDialogs() {
    return {};
}
static bool IsHeapWhole() {
    return true;
}
#endif

namespace {

// Ends the process, with a failure code and the test's name, when one test takes longer than SCV_TEST_TIMEOUT
// seconds (300 when that is unset): a dialog that nobody closes would wait for ever.
class Watchdog final : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override { m_ticks = 0; }
    void OnTestEnd(const testing::TestInfo&) override {
        EXPECT_TRUE(IsHeapWhole()) << "a block of the heap is damaged";
        m_ticks = -1;
    }
    void OnTestProgramStart(const testing::UnitTest& program) override {
        std::thread([this, &program] {
            const char* const timeout = std::getenv("SCV_TEST_TIMEOUT");
            const int seconds = timeout == nullptr ? 300 : std::atoi(timeout);
            while (m_ticks < 5 * seconds) {
                std::this_thread::sleep_for(std::chrono::milliseconds(200));
                m_ticks += m_ticks < 0 ? 0 : 1;
            }
            const testing::TestInfo& test = *program.current_test_info();
            std::cout << "\n[  HANGS   ] " << test.test_suite_name() << '.' << test.name() << "\n"
                      << DescribeOpenDialogs() << std::flush;
            std::_Exit(3);
        }).detach();
    }

    std::atomic<int> m_ticks = -1;  // fifths of a second since the test began, -1 between tests
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
    static Watchdog watchdog;  // its thread reads it until the process ends
    testing::UnitTest::GetInstance()->listeners().Append(&watchdog);
    const int result = RUN_ALL_TESTS();
    testing::UnitTest::GetInstance()->listeners().Release(&watchdog);
    return result;
}
