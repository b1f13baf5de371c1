#include "util/Csv.h"

#include <gmock/gmock.h>

#include <cwctype>
#include <stdexcept>

#include "util/WhiteSpace.h"

namespace {

using Fields = std::vector<std::wstring>;
enum Quotes { None, AtStart, Anywhere, AnywhereOfNone };

TEST(Csv, SplitsAtSeparatorsOutsideQuotes) {
    const struct {
        std::wstring_view text;
        wchar_t separator;
        Quotes quotes;
        Fields fields;
    } cases[] = {
        {L"", L',', AtStart, {}},
        {L",", L',', AtStart, {L"", L""}},
        {L"a,,b", L',', AtStart, {L"a", L"", L"b"}},
        {{L"a,b\0,c", 6}, L',', AtStart, {L"a", L"b"}},
        {{L"\0a", 2}, L',', AtStart, {}},

        {LR"("He said ""hi""",2)", L',', AtStart, {LR"(He said "hi")", L"2"}},
        {L"'a,b',\"c,d\",'it''s'", L',', AtStart, {L"a,b", L"c,d", L"it's"}},
        {LR"(x, "y,z")", L',', AtStart, {L"x", LR"("y)", LR"(z")"}},
        {LR"(" a ", b )", L',', AtStart, {L" a ", L"b"}},
        {LR"("open,to the end )", L',', AtStart, {LR"("open,to the end)"}},
        {LR"("","""",""",""",")", L',', AtStart, {L"", LR"(")", LR"(",")", LR"(")"}},
        {LR"("a" b,c)", L',', AtStart, {LR"("a" b)", L"c"}},
        {L"'a',b'c',d\"e\",'f'g'", L',', AtStart, {L"a", L"b'c'", L"d\"e\"", L"f'g"}},

        // A switch and its argument stay together.
        {LR"(-at"C:\my files\u.txt" "x y" -s)",
         L' ',
         Anywhere,
         {LR"(-at"C:\my files\u.txt")", L"x y", L"-s"}},
        {LR"("C:\o'neil d'or\a.scvpr" x)", L' ', Anywhere, {LR"(C:\o'neil d'or\a.scvpr)", L"x"}},
        {LR"(a'b c'd "e f")", L' ', Anywhere, {L"a'b c'd", L"e f"}},

        // Only enclosing double quotes go.
        {LR"("a,b","c""d",'e')", L',', None, {LR"("a)", LR"(b")", LR"(c"d)", L"'e'"}},
        {LR"("a" "b c")", L' ', AnywhereOfNone, {L"a", LR"("b)", LR"(c")"}},

        // Lines: CR LF is one break, but hides an end quote; a quote at a line's start joins lines.
        {L"a\r\nb\r\n", L'\n', AtStart, {L"a", L"b", L""}},
        {L"a\r\n'b\r'\rc", L'\r', AtStart, {L"a", L"b\r", L"c"}},
        {L"'x\ny'\nz", L'\n', AtStart, {L"x\ny", L"z"}},
        {L"\"x\"\r\ny", L'\n', AtStart, {L"\"x\"", L"y"}},
        {L"\t\v\f\r\n a b\u00a0\u2003\u3000,\u200b", L',', AtStart, {L"a b", L"\u200b"}},
    };
    CCsv csv;
    for (const auto& c : cases) {
        const bool allowed = c.quotes == AtStart || c.quotes == Anywhere;
        const std::int32_t count = csv.Split(c.text, c.separator, allowed, c.quotes >= Anywhere);
        EXPECT_EQ(count, csv.GetSize());
        EXPECT_THROW((void)csv.GetAt(count), std::invalid_argument);
        EXPECT_EQ(Fields(csv.begin(), csv.end()), c.fields) << testing::PrintToString(c.text);
    }
}

#ifdef _WIN32
TEST(Csv, TrimsWhatTheRunTimeCallsWhiteSpace) {
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        if (unit != 0x85) {  // on which the run-times differ
            EXPECT_EQ(IsWhiteSpace(static_cast<wchar_t>(unit)), iswspace(static_cast<wint_t>(unit)) != 0)
                << unit;
        }
    }
}
#endif

}  // namespace
