#include "util/Csv.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

enum Quotes { None, AtStart, Anywhere };

// That what a field holds comes back from quotes, CsvFuzz shows.
TEST(Csv, SplitsAtSeparatorsOutsideQuotes) {
    const struct {
        const char* label;
        std::wstring_view text;
        wchar_t separator;
        Quotes quotes;
        std::vector<std::wstring> fields;
    } cases[] = {
        {"empty", L"", L',', AtStart, {}},
        {"ends at NUL", {L"a,b\0,c", 6}, L',', AtStart, {L"a", L"b"}},
        {"doubled quotes",
         LR"("He said ""hi""",'it''s, too',2)",
         L',',
         AtStart,
         {LR"(He said "hi")", L"it's, too", L"2"}},
        {"text after the end quote", LR"("a" b,c)", L',', AtStart, {LR"("a" b)", L"c"}},
        {"switch", LR"(-at"C:\my u.txt" "x y" -s)", L' ', Anywhere, {LR"(-at"C:\my u.txt")", L"x y", L"-s"}},
        {"path", LR"("C:\o'neil d'or\a.scvpr" x)", L' ', Anywhere, {LR"(C:\o'neil d'or\a.scvpr)", L"x"}},
        {"outer pair", LR"("a,b","c""d",'e')", L',', None, {LR"("a)", LR"(b")", LR"(c"d)", L"'e'"}},
        // CR LF is one break, but hides an end quote; a quote at a line's start joins lines.
        {"lines", L"a\r\n'b\r'\rc", L'\r', AtStart, {L"a", L"b\r", L"c"}},
        {"white space", L"\t\v\f\r\n a b\u00a0\u2003\u3000,\u200b", L',', AtStart, {L"a b", L"\u200b"}},
    };
    CCsv csv;
    for (const auto& c : cases) {
        const std::int32_t count = csv.Split(c.text, c.separator, c.quotes != None, c.quotes == Anywhere);
        EXPECT_THROW((void)csv.GetAt(count), std::invalid_argument) << c.label;
        EXPECT_EQ(std::vector<std::wstring>(csv.begin(), csv.end()), c.fields) << c.label;
    }
}

}  // namespace
