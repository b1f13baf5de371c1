#include "util/Utf8.h"

#include <gtest/gtest.h>

TEST(Utf8, TextSurvivesBothWays) {
    // Built from units, as a native wide literal would hold the emoji in one element.
    const std::wstring text = std::wstring(L"a\u00e9\u0426\u4fa1") + wchar_t{0xD83D} + wchar_t{0xDE00} + L"z";
    const std::string bytes = "a\xC3\xA9\xD0\xA6\xE4\xBE\xA1\xF0\x9F\x98\x80z";
    EXPECT_EQ(ToUtf8(text), bytes);
    EXPECT_EQ(FromUtf8(bytes), text);
}

TEST(Utf8, WhatIsNotValidBecomesTheReplacementCharacter) {
    EXPECT_EQ(ToUtf8(std::wstring(1, wchar_t{0xD83D}) + L"x"), "\xEF\xBF\xBDx") << "a lone high surrogate";
    EXPECT_EQ(ToUtf8(std::wstring(1, wchar_t{0xDE00})), "\xEF\xBF\xBD") << "a lone low surrogate";
    const struct {
        const char* bytes;
        std::wstring text;
    } table[] = {
        {"\xC3", L"\uFFFD"},                                // cut short
        {"\xC0\xAF", L"\uFFFD\uFFFD"},                      // longer than need be
        {"\xE0\x80\xAF", L"\uFFFD\uFFFD\uFFFD"},            // the same in three bytes
        {"\xED\xA0\x80", L"\uFFFD\uFFFD\uFFFD"},            // a surrogate
        {"\xF4\x90\x80\x80", L"\uFFFD\uFFFD\uFFFD\uFFFD"},  // past the last plane
        {"\xFFz", L"\uFFFDz"},
        {"\x80", L"\uFFFD"},
    };
    for (const auto& row : table) {
        EXPECT_EQ(FromUtf8(row.bytes), row.text) << testing::PrintToString(row.bytes);
    }
}
