#include "script/ParameterCount.h"

#include <gtest/gtest.h>

#include "util/Csv.h"

TEST(CountParameters, ReadsTheFirstLineThatDeclaresTheFunction) {
    const struct {
        std::wstring script;
        int expected;
    } cases[] = {
        {L"function Main ( text, url ) {", 2},
        {L"Function Main(text)", 1},
        {L"Function Main ( )", 0},
        {L"Function Main()", 0},
        {L"Function Main(,,)", 3},
        {L"", 0},
        {L"Function Other(a, b)", 0},
        {L"Function main(a)", 0},
        {L"FUNCTION Main(a)", 0},
        {L"Function\tMain(a)", 0},
        {L"Main Function (a)", 0},
        {L"Function Main\n(a)", 0},
        {L"Function Main(a\n)", 0},
        {L"' Function Main(a, b, c)\nFunction Main(a)", 3},
        {L"Function First(a, b)\r\n  x = 1\r\nEnd Function\r\nFunction Main(a) Main = f(a, 1)\r\n", 1},
        {L"Function Main\nFunction Main(a, b)", 2},
        {L"Function Mainly(a, b)\nFunction Main(a)", 2},
    };
    for (const auto& each : cases) {
        CCsv lines;
        lines.Split(each.script, L'\n', false, false);
        EXPECT_EQ(CountParameters(lines, L"Main"), each.expected) << testing::PrintToString(each.script);
    }
}
