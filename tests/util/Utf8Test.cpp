#include "util/Utf8.h"

#include <gtest/gtest.h>

TEST(Utf8, InvalidBytesBecomeReplacementCharacters) {
    const std::wstring text = L"a\u00e9\u0426\u4fa1\xd83d\xde00z";
    const std::string bytes = "a\xC3\xA9\xD0\xA6\xE4\xBE\xA1\xF0\x9F\x98\x80z";
    EXPECT_EQ(ToUtf8(text), bytes);
    EXPECT_EQ(FromUtf8(bytes), text);
    EXPECT_EQ(ToUtf8(L"\xd83dx\xde00"), "\xEF\xBF\xBDx\xEF\xBF\xBD") << "lone surrogates";
    const std::tuple<const char*, const char*, std::wstring> cases[] = {
        {"cut short", "\xC3", L"\uFFFD"},
        {"no second byte", "\xC3(", L"\uFFFD("},
        {"longer than need be", "\xE0\x80\xAF", L"\uFFFD\uFFFD\uFFFD"},
        {"surrogate", "\xED\xA0\x80", L"\uFFFD\uFFFD\uFFFD"},
        {"past the last plane", "\xF4\x90\x80\x80", L"\uFFFD\uFFFD\uFFFD\uFFFD"},
    };
    for (const auto& [label, invalid, read] : cases) {
        EXPECT_EQ(FromUtf8(invalid), read) << label;
    }
}
