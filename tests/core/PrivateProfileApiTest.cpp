#include <gtest/gtest.h>

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>

#include "core/PrivateProfile.h"
#include "tests/support/TemporaryFolder.h"
#include "util/Utf8.h"

// The engine and the platform's private-profile functions answer alike. Where Wine is known not to do what
// Windows does, a case says so by name, and only Wine is allowed its own answer.

namespace {

// As the platform sees it.
class CProfileFile {
public:
    explicit CProfileFile(const std::string& bytes) : m_path(m_folder.File(L"a.ini", bytes)) {}
    CProfileFile(const CProfileFile&) = delete;
    CProfileFile& operator=(const CProfileFile&) = delete;
    ~CProfileFile() { Flush(); }

    [[nodiscard]] std::optional<std::wstring> GetString(const wchar_t* section, const wchar_t* key) const {
        wchar_t buffer[4096];
        GetPrivateProfileStringW(section, key, L"<none>", buffer, 4096, m_path.c_str());
        return std::wstring_view(buffer) == L"<none>" ? std::nullopt : std::optional<std::wstring>(buffer);
    }
    [[nodiscard]] std::int32_t GetInt(const wchar_t* section, const wchar_t* key) const {
        return static_cast<std::int32_t>(GetPrivateProfileIntW(section, key, 77, m_path.c_str()));
    }
    void Write(const wchar_t* section, const wchar_t* key, const wchar_t* value) const {
        EXPECT_TRUE(WritePrivateProfileStringW(section, key, value, m_path.c_str()));
    }
    [[nodiscard]] std::string Bytes() const {
        Flush();
        return BytesOf(m_path);
    }

private:
    void Flush() const { WritePrivateProfileStringW(nullptr, nullptr, nullptr, m_path.c_str()); }

    TemporaryFolder m_folder;
    std::wstring m_path;
};

constexpr const wchar_t* kSections[] = {L"s", L"T", L"long name", L"caf\u00e9", L"none"};
constexpr const wchar_t* kKeys[] = {L"k", L"KEY", L"two words", L"#k", L"caf\u00e9", L"n"};

// Pieces of lines that trip readers. What Wine is known to read in another way is left to the named cases
// below; an empty section name, which Wine forgets when it writes, is left out.
constexpr const char* kHeaders[] = {"[s]",         "[S]",          "[t]",         "  [t] ",
                                    "[long name]", "[s] trailing", "[s]k=inline", "[caf\xe9]",
                                    "[ s ]",       "\t[s];c",      "[[s]",        "x[s]"};
constexpr const char* kLines[] = {"",      " ",       "\t",   "\x1a", "\f",  ";c", "  ; c",
                                  "; [s]", "#k=hash", ";k=c", "k",    "k ;", "=v", " = v"};
constexpr const char* kKeyTexts[] = {"k",         "K",          " k",      "\tk ", "key", "KEY\t",
                                     "two words", "two  words", "caf\xe9", "n",    "k k"};
// clang-format off
constexpr const char* kValues[] = {
    "", " ", "v", " v ", "\tv\t", "\"v\"", "'v'", "\" v \"", "\"\"v\"\"", "'\"v\"'", "\"v'", "\"v", "v\"",
    "'", "\"", "\"\"", "''", "\"v\";c", "v ; c", "a=b", "=", "==", "[s]", "42abc", "-1", "+1", "- 1", "-",
    "0x1F", "0X1F", "0b11", "0o17", "017", "0x", "4294967297", "2147483648", "-2147483649",
    "99999999999999999999", " 7", "'8'", "\" 9\"", "1e5", "1,000", "abc", "caf\xe9", "\x80", "\\n", "%s",
    "x\x1a", "\x1ax", "x\vy",
};
// clang-format on
constexpr const char* kBreaks[] = {"\r\n", "\r\n", "\n", "\r", "\n\r", "\r\r\n"};

// The same files in every run.
class CHostileFiles {
public:
    std::string Next() {
        std::string text;
        const char* lineBreak = Pick(kBreaks);
        for (unsigned lines = 1 + Number(30); lines > 0; --lines) {
            const unsigned kind = Number(10);
            if (kind < 4) {
                text += kind < 2 ? Pick(kHeaders) : Pick(kLines);
            } else {
                text += std::string(Pick(kKeyTexts)) + (Number(3) == 0 ? " = " : "=") + Pick(kValues);
            }
            if (lines > 1 || Number(2) == 0) {
                text += Number(6) == 0 ? Pick(kBreaks) : lineBreak;
            }
        }
        if (Number(3) != 0) {
            return text;
        }
        std::wstring units;
        AppendDecoded(TextEncoding::Ansi, text, units);
        std::string bytes(ByteOrderMark(TextEncoding::Utf16LE));
        EXPECT_TRUE(AppendEncoded(TextEncoding::Utf16LE, units, bytes));
        return bytes;
    }
    unsigned Number(unsigned limit) {
        m_state = m_state * 6364136223846793005U + 1442695040888963407U;
        return static_cast<unsigned>(m_state >> 33) % limit;
    }
    template <typename T, std::size_t N>
    T Pick(T (&from)[N]) {  // NOLINT(readability-const-return-type): T is const with its array
        return from[Number(N)];
    }

private:
    std::uint64_t m_state = 42;
};

std::string Shown(const std::optional<std::wstring>& value) {
    return value ? '<' + ToUtf8(*value) + '>' : "none";
}

// Every answer of both; returns how many keys were there.
int ExpectSameAnswers(const CPrivateProfile& engine, const CProfileFile& file, const std::string& text) {
    SCOPED_TRACE(testing::PrintToString(text));
    int found = 0;
    for (const wchar_t* section : kSections) {
        for (const wchar_t* key : kKeys) {
            const auto expected = file.GetString(section, key);
            EXPECT_EQ(Shown(engine.GetString(section, key)), Shown(expected))
                << ToUtf8(section) << '/' << ToUtf8(key);
            EXPECT_EQ(engine.GetInt(section, key, 77), file.GetInt(section, key))
                << ToUtf8(section) << '/' << ToUtf8(key);
            found += expected.has_value();
        }
    }
    return found;
}

}  // namespace

TEST(PrivateProfileApi, HostileFilesAreReadAndEditedAlike) {
    constexpr const wchar_t* values[] = {L"new",   L"",      L" padded ",  L"\"quoted\"",
                                         L"'a' b", L"a;b=c", L"caf\u00e9", L"-12"};
    CHostileFiles files;
    int found = 0;
    for (int i = 0; i < 200 && !testing::Test::HasFailure(); ++i) {
        const std::string text = files.Next();
        const CProfileFile file(text);
        CPrivateProfile engine(text);
        found += ExpectSameAnswers(engine, file, text);
        std::string log;
        for (unsigned edits = 1 + files.Number(5); edits > 0; --edits) {
            const wchar_t* section = files.Pick(kSections);
            if (files.Number(4) == 0) {
                log += "\ndelete " + ToUtf8(section);
                file.Write(section, nullptr, nullptr);
                engine.RemoveSection(section);
                continue;
            }
            const CPrivateProfile::Entry entry{files.Pick(kKeys), files.Pick(values)};
            log += "\nset " + ToUtf8(section) + '/' + ToUtf8(entry.key) + '=' + ToUtf8(entry.value);
            file.Write(section, std::wstring(entry.key).c_str(), entry.value.c_str());
            engine.SetStrings(section, {&entry, 1});
        }
        log = "file " + text + log + "\nplatform: " + file.Bytes() + "\nengine: " + engine.Serialise();
        ExpectSameAnswers(engine, file, log);
        ExpectSameAnswers(CPrivateProfile(file.Bytes()), file, log);
        ExpectSameAnswers(engine, CProfileFile(engine.Serialise()), log);
    }
    EXPECT_GT(found, 400) << "the files must hold what is asked for";
}

TEST(PrivateProfileApi, NamedDifferences) {
    const bool wine = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
    const struct {
        std::string text;
        const wchar_t* section;
        const wchar_t* key;
        const char* windows;  // and the engine
        const char* wine;
    } cases[] = {
        {"[s\r\nk=v\r\n", L"s", L"k", "<v>", "none"},
        {"[a]b]\r\nk=v\r\n", L"a", L"k", "<v>", "none"},
        {"[a]b]\r\nk=v\r\n", L"a]b", L"k", "none", "<v>"},
        {"k=v\r\n[s]\r\n", L"", L"k", "none", "<v>"},
        {"[\xe9]\r\nk\xc9=v\r\n", L"\u00c9", L"k\u00e9", "<v>", "none"},
        {"[s]\r\n;k=v\r\n", L"s", L";k", "none", "<v>"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Shown(CPrivateProfile(c.text).GetString(c.section, c.key)), c.windows) << c.text;
        EXPECT_EQ(Shown(CProfileFile(c.text).GetString(c.section, c.key)), wine ? c.wine : c.windows)
            << c.text;
    }
}
