#include "util/Csv.h"

#include <gmock/gmock.h>

#include <cwctype>
#include <ostream>

#include "util/WhiteSpace.h"

namespace {

using Fields = std::vector<std::wstring>;

Fields Split(std::wstring_view text, wchar_t separator, bool allowQuotes = true,
             bool quotesAnywhere = false) {
    CCsv csv;
    csv.Add(L"left from before");
    const std::int32_t count = csv.Split(text, separator, allowQuotes, quotesAnywhere);
    EXPECT_EQ(count, csv.GetSize());
    return {csv.begin(), csv.end()};
}

TEST(Csv, FieldsAreCountedBySeparators) {
    EXPECT_EQ(Split(L"", L','), Fields{});
    EXPECT_EQ(Split(L",", L','), (Fields{L"", L""}));
    EXPECT_EQ(Split(L"a,", L','), (Fields{L"a", L""}));
    EXPECT_EQ(Split(L"a,,b", L','), (Fields{L"a", L"", L"b"}));
    EXPECT_EQ(Split(std::wstring_view(L"a,b\0,c", 6), L','), (Fields{L"a", L"b"})) << "ends at NUL";
    EXPECT_EQ(Split(std::wstring_view(L"\0a", 2), L','), Fields{});
}

TEST(Csv, QuotesAtTheStartOfAField) {
    const struct {
        std::wstring_view text;
        Fields fields;
    } cases[] = {
        {LR"("He said ""hi""",2)", {LR"(He said "hi")", L"2"}},
        {L"'a b',c", {L"a b", L"c"}},
        {L"'a,b',\"c,d\",'it''s'", {L"a,b", L"c,d", L"it's"}},
        {LR"(x, "y")", {L"x", LR"("y")"}},
        {LR"(x, "y,z")", {L"x", LR"("y)", LR"(z")"}},
        {LR"(" a ", b )", {L" a ", L"b"}},
        {LR"("open,to the end )", {LR"("open,to the end)"}},
        {LR"("","""",""",""")", {L"", LR"(")", LR"(",")"}},
        {LR"(")", {LR"(")"}},
        {LR"("a" b,c)", {LR"("a" b)", L"c"}},
        {L"'a',b'c',d\"e\"", {L"a", L"b'c'", L"d\"e\""}},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(Split(each.text, L','), each.fields) << testing::PrintToString(each.text);
    }
}

TEST(Csv, QuotesAnywhereKeepASwitchAndItsArgumentTogether) {
    EXPECT_EQ(Split(LR"(/a "x y" b)", L' ', true, true), (Fields{L"/a", L"x y", L"b"}));
    EXPECT_EQ(Split(LR"(-at"C:\my files\u.txt" -s)", L' ', true, true),
              (Fields{LR"(-at"C:\my files\u.txt")", L"-s"}));
    EXPECT_EQ(Split(LR"(-at"a b)", L' ', true, true), Fields{LR"(-at"a b)"});
    EXPECT_EQ(Split(LR"("C:\o'neil d'or\a.scvpr" x)", L' ', true, true),
              (Fields{LR"(C:\o'neil d'or\a.scvpr)", L"x"}));
    EXPECT_EQ(Split(LR"(a'b c'd "e f")", L' ', true, true), (Fields{L"a'b c'd", L"e f"}));
}

TEST(Csv, WithoutQuotesOnlyEnclosingDoubleQuotesGo) {
    EXPECT_EQ(Split(LR"("a,b","c""d",'e')", L',', false), (Fields{LR"("a)", LR"(b")", LR"(c"d)", L"'e'"}));
    EXPECT_EQ(Split(LR"("a" "b c")", L' ', false, true), (Fields{L"a", LR"("b)", LR"(c")"}))
        << "anywhere counts only where quotes are allowed at all";
}

TEST(Csv, Lines) {
    EXPECT_EQ(Split(L"a\r\nb\r\n", L'\n'), (Fields{L"a", L"b", L""}));
    EXPECT_EQ(Split(L"a\r\n'b\r'\rc", L'\r'), (Fields{L"a", L"b\r", L"c"})) << "CR LF is one break";
    EXPECT_EQ(Split(L"'x\ny'\nz", L'\n'), (Fields{L"x\ny", L"z"})) << "a quote at a line's start joins lines";
    EXPECT_EQ(Split(L"\"x\"\r\ny", L'\n'), (Fields{L"\"x\"", L"y"}))
        << "the carriage return hides the end quote";
}

TEST(Csv, TrimsWhatTheRunTimeCallsWhiteSpace) {
    EXPECT_EQ(Split(L"\t\v\f\r\n a b\u00a0\u2003\u3000,\u200b", L','), (Fields{L"a b", L"\u200b"}));
#ifdef _WIN32
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        if (unit != 0x85) {  // on which the run-times differ
            EXPECT_EQ(IsWhiteSpace(static_cast<wchar_t>(unit)), iswspace(static_cast<wint_t>(unit)) != 0)
                << unit;
        }
    }
#endif
}

}  // namespace
