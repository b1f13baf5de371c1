#include <gmock/gmock.h>

#include "core/LocalTime.h"

#ifdef _WIN32
int wmain(int argc, wchar_t** argv) {
#else
int main(int argc, char** argv) {
#endif
    RefreshTimeZone();
    testing::InitGoogleMock(&argc, argv);
    return RUN_ALL_TESTS();
}
