#include "ui/StartUp.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

TEST(StartUp, BackgroundAnywhereStartsHidden) {
    for (const wchar_t* line :
         {L"a.exe /BACKGROUND", L"a.exe -BackGround x", L"a.exe C:\\my backgrounds\\p.scvpr"}) {
        EXPECT_TRUE(StartsHidden(line)) << line;
    }
    for (const wchar_t* line : {L"", L"a.exe /back ground", L"a.exe /backgroun"}) {
        EXPECT_FALSE(StartsHidden(line)) << line;
    }
    EXPECT_EQ(StartupCommand(L"C:\\my p\\a.exe"), L"\"C:\\my p\\a.exe\" /background");
}

TEST(StartUp, HalfOfAHandedOverPathArrives) {
    EXPECT_EQ(kHandOverTag, 32771u);
    const std::wstring sent = L"C:\\p\u00fc\u30c6.scvpr";
    const std::u16string units(sent.begin(), sent.end());
    // Exactly the delivered bytes, on the heap and at an odd address: reading further is an error there.
    const auto receive = [&](std::size_t byteCount) {
        std::vector<char> bytes(byteCount + 1);
        std::copy_n(reinterpret_cast<const char*>(units.data()), byteCount, bytes.data() + 1);
        return ReadHandOver(bytes.data() + 1, byteCount);
    };
    EXPECT_EQ(HandOverByteCount(sent), sent.size());
    EXPECT_EQ(receive(12), sent.substr(0, 6));
    EXPECT_EQ(receive(5), L"C:") << "an odd byte is left out";
    EXPECT_EQ(receive(1), L"");
    EXPECT_EQ(receive(0), L"");
    EXPECT_EQ(ReadHandOver(nullptr, 0xFFFFFFFF), L"");
    const std::vector<char16_t> huge(40000, u'x');
    EXPECT_EQ(ReadHandOver(huge.data(), 0xFFFFFFFF).size(), 32767u);
}

TEST(StartUp, TheTitleCarriesTheTrimmedVersion) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"3.0.0", L"T 3.0"},     {L"2.0.10", L"T 2.0.1"}, {L"3.1.2", L"T 3.1.2"},
        {L"10.20.0", L"T 10.20"}, {L"3.0..", L"T 3.0"},    {L"", L"T"}};
    for (const auto& [version, title] : cases) {
        EXPECT_EQ(WindowTitle(L"T", version), title);
    }
}
