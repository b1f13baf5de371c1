#include "ui/model/StartUp.h"

#include <gtest/gtest.h>

#include <vector>

TEST(StartUp, BackgroundAnywhereStartsHidden) {
    for (const wchar_t* line : {L"a.exe -BackGround x", L"a.exe C:\\my backgrounds\\p.scvpr"}) {
        EXPECT_TRUE(StartsHidden(line)) << line;
    }
    EXPECT_TRUE(StartsHidden(StartupCommand(L"C:\\my p\\a.exe")));
    EXPECT_FALSE(StartsHidden(L"a.exe /back ground"));
}

TEST(StartUp, HalfOfAHandedOverPathArrives) {
    const std::wstring sent = L"C:\\p\u00fc\u30c6.scvpr";
    EXPECT_EQ(HandOverByteCount(sent), sent.size());
    // A heap block of exactly these bytes at an odd address, so that the sanitizer reports a read beyond
    // them.
    for (const std::size_t byteCount : {12U, 5U, 1U, 0U}) {
        const std::u16string units(sent.begin(), sent.end());
        std::vector<char> bytes(1);
        const auto* first = reinterpret_cast<const char*>(units.data());
        bytes.insert(bytes.end(), first, first + byteCount);
        EXPECT_EQ(ReadHandOver(bytes.data() + 1, byteCount), sent.substr(0, byteCount / 2));
    }
    EXPECT_EQ(ReadHandOver(nullptr, 0xFFFFFFFF), L"");
}

TEST(StartUp, TheTitleCarriesTheTrimmedVersion) {
    EXPECT_EQ(WindowTitle(L"T", L"3.0.0"), L"T 3.0");
    EXPECT_EQ(WindowTitle(L"T", L"2.0.10"), L"T 2.0.1");
}
