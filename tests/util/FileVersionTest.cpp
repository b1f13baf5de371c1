#include "util/FileVersion.h"

#include <gtest/gtest.h>

namespace {

TEST(FileVersion, IsTheFilesOwnInThreeNumbers) {
    EXPECT_EQ(GetFileVersionString(), SCV_VERSION);
}

}  // namespace
