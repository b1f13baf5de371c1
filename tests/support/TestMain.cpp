#include <gmock/gmock.h>

#include "core/LocalTime.h"
#include "tests/support/Watchdog.h"
#ifdef _WIN32
#include "tests/support/OpenDialogs.h"
#include "util/ProcessHardening.h"
#endif

#ifdef _WIN32
int wmain(int argc, wchar_t** argv) {
    HardenProcess();
    const auto describe = DescribeOpenDialogs;
#else
int main(int argc, char** argv) {
    const auto describe = [] { return std::string(); };
#endif
    RefreshTimeZone();
    testing::InitGoogleMock(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new Watchdog(describe));
    return RUN_ALL_TESTS();
}
