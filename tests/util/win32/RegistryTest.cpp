#include "util/win32/Registry.h"

#include <gtest/gtest.h>

// The last two bytes stored count as the terminator, whatever they are.
TEST(Registry, TextsAreReadBackUpToTheLimit) {
    const std::wstring key = L"Software\\Talvernick\\Test" + std::to_wstring(GetCurrentProcessId());
    std::wstring read = L"kept";
    const std::wstring longest = L"\u0416\u4fa1" + std::wstring(124, L'x');
    EXPECT_EQ(RegWriteString(HKEY_CURRENT_USER, key, L"v", longest.c_str()), 1);
    EXPECT_EQ(RegReadString(HKEY_CURRENT_USER, key, L"v", read), 1);
    EXPECT_EQ(read, longest);
    const std::tuple<const char*, std::string, std::wstring> stored[] = {
        {"odd length", std::string("a\0b\0c", 5), L"a"}, {"one byte", "a", L""}, {"empty", "", L""}};
    for (const auto& [label, bytes, text] : stored) {
        RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), L"v", REG_BINARY, bytes.data(),
                        static_cast<DWORD>(bytes.size()));
        EXPECT_EQ(RegReadString(HKEY_CURRENT_USER, key, L"v", read), 1) << label;
        EXPECT_EQ(read, text) << label;
    }
    read = L"kept";
    EXPECT_EQ(RegWriteString(HKEY_CURRENT_USER, key, L"v", (longest + L'x').c_str()), 1);
    EXPECT_EQ(RegReadString(HKEY_CURRENT_USER, key, L"v", read), 0) << "127 characters";
    EXPECT_EQ(read, L"kept");
    RegDeleteTreeW(HKEY_CURRENT_USER, key.c_str());
}
