#include "script/ScriptErrorInfo.h"

#include <gtest/gtest.h>

TEST(ScriptErrorText, TellsThePlaceWhereItIsKnown) {
    EXPECT_EQ(ScriptErrorText({L"Engine", L"Wrong", 12, 0, L"x = \"%d\""}),
              L"Error Source: Engine\r\nError Description: Wrong\r\nError on Line: 12\r\n"
              L"Error on Column: 0\r\nError in String: \"x = \"%d\"\"");
    EXPECT_EQ(ScriptErrorText({L"", L"Wrong", 0, 7, L"text"}), L"Error Source: \r\nError Description: Wrong");
}
