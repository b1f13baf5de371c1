#include "util/Registry.h"

#include <gtest/gtest.h>

namespace {

class Registry : public testing::Test {
protected:
    ~Registry() override { RegDeleteTreeW(HKEY_CURRENT_USER, m_key.c_str()); }

    [[nodiscard]] int Write(const wchar_t* name, const wchar_t* text) const {
        return RegWriteString(HKEY_CURRENT_USER, m_key, name, text);
    }
    // What reading gives; "kept" when it fails and leaves the text alone.
    [[nodiscard]] std::wstring Read(const wchar_t* name) const {
        std::wstring text = L"kept";
        const int result = RegReadString(HKEY_CURRENT_USER, m_key, name, text);
        EXPECT_EQ(result, text == L"kept" ? 0 : 1);
        return text;
    }

    const std::wstring m_key = L"Software\\Talvernick\\Test" + std::to_wstring(GetCurrentProcessId());
};

TEST_F(Registry, TextsComeBackUpToTheLimit) {
    EXPECT_EQ(Read(L"v"), L"kept") << "no key";
    const std::wstring longest = L"\u0416\u4fa1" + std::wstring(124, L'x');
    for (const std::wstring& text : {std::wstring(), longest}) {
        EXPECT_EQ(Write(L"v", text.c_str()), 1);
        EXPECT_EQ(Read(L"v"), text);
    }
    EXPECT_EQ(Write(L"v", (longest + L'x').c_str()), 1);
    EXPECT_EQ(Read(L"v"), L"kept") << "127 characters";
    EXPECT_EQ(Read(L"other"), L"kept");
    DWORD bytes = 0;
    EXPECT_EQ(Write(L"v", L""), 1);
    RegGetValueW(HKEY_CURRENT_USER, m_key.c_str(), L"v", RRF_RT_REG_SZ, nullptr, nullptr, &bytes);
    EXPECT_EQ(bytes, sizeof(wchar_t)) << "the terminator is stored";
    EXPECT_EQ(Write(nullptr, L"default"), 1);
    EXPECT_EQ(Read(nullptr), L"default");
}

// The last two bytes count as the terminator, whatever they are.
TEST_F(Registry, AnyStoredBytesAreText) {
    const struct {
        DWORD type;
        std::string bytes;
        std::wstring text;
    } cases[] = {{REG_BINARY, std::string("a\0b\0", 4), L"a"},
                 {REG_BINARY, std::string("a\0b\0c", 5), L"a"},
                 {REG_DWORD, std::string("a\0\0\0", 4), L"a"},
                 {REG_BINARY, "a", L""},
                 {REG_BINARY, "", L""},
                 {REG_BINARY, std::string(255, 'a'), std::wstring(126, L'\x6161')}};
    for (const auto& c : cases) {
        RegSetKeyValueW(HKEY_CURRENT_USER, m_key.c_str(), L"raw", c.type, c.bytes.data(),
                        static_cast<DWORD>(c.bytes.size()));
        EXPECT_EQ(Read(L"raw"), c.text) << c.bytes;
    }
}

TEST_F(Registry, WritingNothingAndRemovingCreateTheKey) {
    for (const bool byWriting : {true, false}) {
        HKEY key = nullptr;
        EXPECT_NE(RegOpenKeyW(HKEY_CURRENT_USER, m_key.c_str(), &key), ERROR_SUCCESS);
        EXPECT_EQ(byWriting ? Write(L"v", nullptr) : 1 - RegRemoveValue(HKEY_CURRENT_USER, m_key, L"v"), 1);
        EXPECT_EQ(Read(L"v"), L"kept");
        EXPECT_EQ(RegDeleteTreeW(HKEY_CURRENT_USER, m_key.c_str()), ERROR_SUCCESS);
    }
    EXPECT_EQ(RegRemoveValue(HKEY_CURRENT_USER, m_key, nullptr), 1);
    EXPECT_EQ(Write(L"v", L"x"), 1);
    EXPECT_EQ(RegRemoveValue(HKEY_CURRENT_USER, m_key, L"v"), 1);
    EXPECT_EQ(Read(L"v"), L"kept");

    std::wstring text;
    EXPECT_EQ(RegReadString(nullptr, m_key, L"v", text), 0) << "no root";
    EXPECT_EQ(RegWriteString(nullptr, m_key, L"v", L"x"), 0);
    EXPECT_EQ(RegRemoveValue(nullptr, m_key, nullptr), 0);
}

}  // namespace
