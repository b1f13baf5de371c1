#include <gtest/gtest.h>

#include <windows.h>

#include <random>
#include <string>

#include "core/list/PrivateProfile.h"
#include "tests/support/TemporaryFolder.h"

// The engine and the platform's private-profile functions answer alike.

namespace {

// Pieces of lines that trip readers. What Wine reads in another way than Windows is left to
// PrivateProfileTest; an empty section name, which Wine forgets when it writes, is left out.
// clang-format off
constexpr const wchar_t* kSections[] = {L"s", L"T", L"long name", L"caf\u00e9", L"none"};
constexpr const wchar_t* kKeys[] = {L"k", L"KEY", L"two words", L"#k", L"caf\u00e9", L"n"};
constexpr const wchar_t* kNewValues[] = {L"new", L"", L" padded ", L"\"quoted\"", L"'a' b", L"a;b=c", L"-12"};
constexpr const char* kLines[] = {
    "[s]", "[S]", "[t]", "  [t] ", "[long name]", "[s] trailing", "[s]k=inline", "[caf\xe9]", "[ s ]", "\t[s];c",
    "[[s]", "x[s]", "", " ", "\t", "\x1a", "\f", ";c", "  ; c", "; [s]", "#k=hash", ";k=c", "k", "k ;", "=v", " = v",
};
constexpr const char* kKeyTexts[] = {
    "k=", "K=", " k =", "\tk = ", "key=", "KEY\t=", "two words = ", "two  words=", "caf\xe9=", "n=", "k k=",
};
constexpr const char* kValues[] = {
    "", " ", " v ", "\tv\t", "\"v\"", "'v'", "\" v \"", "\"\"v\"\"", "'\"v\"'", "\"v'", "\"v", "v\"", "'",
    "\"", "\"\"", "\"v\";c", "v ; c", "a=b", "=", "[s]", "42abc", "-1", "+1", "- 1", "-", "0x1F", "0X1F",
    "0b11", "0o17", "017", "0x", "4294967297", "-2147483649", "99999999999999999999", " 7", "'8'", "1e5",
    "caf\xe9", "\x80", "\\n", "%s", "x\x1a", "\x1ax", "x\vy",
};
constexpr const char* kBreaks[] = {"\r\n", "\r\n", "\r\n", "\n", "\n", "\r", "\n\r", "\r\r\n"};
// clang-format on

class PrivateProfileApi : public testing::Test {
protected:
    template <typename T, std::size_t N>
    T Pick(T (&from)[N]) {  // NOLINT(readability-const-return-type): T is const with its array
        return from[m_random() % N];
    }
    std::string HostileFile() {
        std::string text;
        for (auto lines = 1 + m_random() % 30; lines > 0; --lines) {
            text += m_random() % 5 < 2 ? Pick(kLines) : std::string(Pick(kKeyTexts)) + Pick(kValues);
            text += lines > 1 || m_random() % 2 == 0 ? Pick(kBreaks) : "";
        }
        if (m_random() % 3 != 0) {
            return text;
        }
        std::wstring units;
        AppendDecoded(TextEncoding::Ansi, text, units);
        std::string bytes(ByteOrderMark(TextEncoding::Utf16LE));
        EXPECT_TRUE(AppendEncoded(TextEncoding::Utf16LE, units, bytes));
        return bytes;
    }
    // Every answer of the engine and, of the same text, of the platform.
    void ExpectSameAnswers(const CPrivateProfile& engine) {
        const TemporaryFolder folder;
        const std::wstring path = folder.File(L"a.ini", engine.Serialise());
        for (const wchar_t* section : kSections) {
            for (const wchar_t* key : kKeys) {
                wchar_t text[4096];
                GetPrivateProfileStringW(section, key, L"<none>", text, 4096, path.c_str());
                EXPECT_EQ(engine.GetString(section, key).value_or(L"<none>"), text) << section << '/' << key;
                EXPECT_EQ(static_cast<UINT>(engine.GetInt(section, key, 77)),
                          GetPrivateProfileIntW(section, key, 77, path.c_str()))
                    << section << '/' << key;
                m_found += text != std::wstring(L"<none>");
            }
        }
        WritePrivateProfileStringW(nullptr, nullptr, nullptr, path.c_str());  // the platform lets go of it
    }

    std::mt19937 m_random;  // the same in every run
    int m_found = 0;
};

TEST_F(PrivateProfileApi, HostileFilesAreReadAndEditedAlike) {
    for (int i = 0; i < 200 && !HasFailure(); ++i) {
        const std::string text = HostileFile();
        SCOPED_TRACE(testing::PrintToString(text));
        CPrivateProfile engine(text);
        ExpectSameAnswers(engine);
        for (auto edits = 1 + m_random() % 5; edits > 0; --edits) {
            const wchar_t* const section = Pick(kSections);
            const CPrivateProfile::Entry entry{Pick(kKeys), Pick(kNewValues)};
            if (m_random() % 4 == 0) {
                engine.RemoveSection(section);
            } else {
                engine.SetStrings(section, {&entry, 1});
            }
        }
        SCOPED_TRACE(testing::PrintToString(engine.Serialise()));
        ExpectSameAnswers(engine);
    }
    EXPECT_GT(m_found, 800) << "the files must hold what is asked for";
}

}  // namespace
