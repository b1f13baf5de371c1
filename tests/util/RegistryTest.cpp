#include "util/Registry.h"

#include <gtest/gtest.h>

#include "util/Handle.h"

namespace {

class Registry : public testing::Test {
protected:
    ~Registry() override { RegDeleteTreeW(HKEY_CURRENT_USER, m_key.c_str()); }

    [[nodiscard]] bool KeyExists() const {
        CRegistryKey key;
        return RegOpenKeyExW(HKEY_CURRENT_USER, m_key.c_str(), 0, KEY_QUERY_VALUE, key.Put()) ==
               ERROR_SUCCESS;
    }
    // What reading gives; "kept" when it fails and leaves the text alone.
    [[nodiscard]] std::wstring Read(const wchar_t* name) const {
        std::wstring text = L"kept";
        const int result = RegReadString(HKEY_CURRENT_USER, m_key, name, text);
        EXPECT_EQ(result, text == L"kept" ? 0 : 1);
        return text;
    }
    void WriteBytes(DWORD type, const void* bytes, DWORD length) const {
        ASSERT_EQ(RegWriteString(HKEY_CURRENT_USER, m_key, L"", nullptr), 1);
        ASSERT_EQ(RegSetKeyValueW(HKEY_CURRENT_USER, m_key.c_str(), L"raw", type, bytes, length),
                  ERROR_SUCCESS);
    }

    const std::wstring m_key = L"Software\\Talvernick\\Test" + std::to_wstring(GetCurrentProcessId());
};

TEST_F(Registry, TextsComeBackUpToTheLimit) {
    EXPECT_EQ(Read(L"v"), L"kept") << "no key";
    const std::wstring longest = L"\u0416\u4fa1" + std::wstring(124, L'x');
    for (const std::wstring& text : {std::wstring(L"C:\\a b.exe"), std::wstring(), longest}) {
        EXPECT_EQ(RegWriteString(HKEY_CURRENT_USER, m_key, L"v", text.c_str()), 1);
        EXPECT_EQ(Read(L"v"), text);
    }
    EXPECT_EQ(RegWriteString(HKEY_CURRENT_USER, m_key, L"v", (longest + L'x').c_str()), 1);
    EXPECT_EQ(Read(L"v"), L"kept") << "127 characters";
    EXPECT_EQ(Read(L"other"), L"kept");

    DWORD bytes = 0;
    EXPECT_EQ(RegWriteString(HKEY_CURRENT_USER, m_key, L"v", L""), 1);
    EXPECT_EQ(RegGetValueW(HKEY_CURRENT_USER, m_key.c_str(), L"v", RRF_RT_REG_SZ, nullptr, nullptr, &bytes),
              ERROR_SUCCESS);
    EXPECT_EQ(bytes, sizeof(wchar_t)) << "the terminator is stored";

    EXPECT_EQ(RegWriteString(HKEY_CURRENT_USER, m_key, nullptr, L"default"), 1);
    EXPECT_EQ(Read(nullptr), L"default");
}

TEST_F(Registry, AnyStoredBytesAreText) {
    WriteBytes(REG_BINARY, L"ab", 4);
    EXPECT_EQ(Read(L"raw"), L"a") << "the last two bytes count as the terminator, whatever they are";
    WriteBytes(REG_BINARY, L"abc", 5);
    EXPECT_EQ(Read(L"raw"), L"a");
    WriteBytes(REG_DWORD, L"a", 4);
    EXPECT_EQ(Read(L"raw"), L"a");
    WriteBytes(REG_BINARY, "a", 1);
    EXPECT_EQ(Read(L"raw"), L"");
    WriteBytes(REG_BINARY, "", 0);
    EXPECT_EQ(Read(L"raw"), L"");
    WriteBytes(REG_BINARY, std::string(255, 'a').data(), 255);
    EXPECT_EQ(Read(L"raw").size(), 126U);
}

TEST_F(Registry, WritingNothingAndRemovingCreateTheKey) {
    EXPECT_FALSE(KeyExists());
    EXPECT_EQ(RegWriteString(HKEY_CURRENT_USER, m_key, L"v", nullptr), 1);
    EXPECT_TRUE(KeyExists());
    EXPECT_EQ(Read(L"v"), L"kept");

    RegDeleteTreeW(HKEY_CURRENT_USER, m_key.c_str());
    EXPECT_EQ(RegRemoveValue(HKEY_CURRENT_USER, m_key, L"v"), 0) << "there is no such value";
    EXPECT_TRUE(KeyExists());
    EXPECT_EQ(RegRemoveValue(HKEY_CURRENT_USER, m_key, nullptr), 1);

    EXPECT_EQ(RegWriteString(HKEY_CURRENT_USER, m_key, L"v", L"x"), 1);
    EXPECT_EQ(RegRemoveValue(HKEY_CURRENT_USER, m_key, L"v"), 1);
    EXPECT_EQ(Read(L"v"), L"kept");
}

TEST_F(Registry, ARootThatIsNoneFails) {
    std::wstring text;
    EXPECT_EQ(RegReadString(nullptr, m_key, L"v", text), 0);
    EXPECT_EQ(RegWriteString(nullptr, m_key, L"v", L"x"), 0);
    EXPECT_EQ(RegRemoveValue(nullptr, m_key, nullptr), 0);
}

}  // namespace
