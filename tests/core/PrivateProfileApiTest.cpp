#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>

#include <windows.h>

#include "core/PrivateProfile.h"
#include "util/Utf8.h"

// The engine and the platform's private-profile functions answer alike. Where Wine is known not to do what
// Windows does, a case says so by name, and only Wine is allowed its own answer.

namespace {

bool UnderWine() {
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

// A file that no test used before (the platform caches by name), gone at the end.
class CProfileFile {
public:
    explicit CProfileFile(const std::string& bytes) {
        static int count = 0;
        wchar_t folder[MAX_PATH];
        GetTempPathW(MAX_PATH, folder);
        m_path = folder + (L"scvprofile" + std::to_wstring(GetCurrentProcessId())) + L"-" +
                 std::to_wstring(++count) + L".ini";
        HANDLE file = CreateFileW(m_path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
        DWORD written = 0;
        EXPECT_TRUE(WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr));
        CloseHandle(file);
    }
    CProfileFile(const CProfileFile&) = delete;
    CProfileFile& operator=(const CProfileFile&) = delete;
    ~CProfileFile() {
        Flush();
        DeleteFileW(m_path.c_str());
    }

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
        std::string bytes;
        HANDLE file = CreateFileW(m_path.c_str(), GENERIC_READ, 7, nullptr, OPEN_EXISTING, 0, nullptr);
        bytes.resize(GetFileSize(file, nullptr));
        DWORD read = 0;
        EXPECT_TRUE(ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr));
        CloseHandle(file);
        return bytes;
    }

private:
    void Flush() const { WritePrivateProfileStringW(nullptr, nullptr, nullptr, m_path.c_str()); }

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
            if (kind < 2) {
                text += Pick(kHeaders);
            } else if (kind < 4) {
                text += Pick(kLines);
            } else {
                text += std::string(Pick(kKeyTexts)) + (Number(3) == 0 ? " = " : "=") + Pick(kValues);
            }
            if (lines > 1 || Number(2) == 0) {
                text += Number(6) == 0 ? Pick(kBreaks) : lineBreak;
            }
        }
        return text;
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

std::string AsUtf16(const std::string& ansi) {
    std::wstring text;
    AppendDecoded(TextEncoding::Ansi, ansi, text);
    std::string bytes(ByteOrderMark(TextEncoding::Utf16LE));
    EXPECT_TRUE(AppendEncoded(TextEncoding::Utf16LE, text, bytes));
    return bytes;
}

std::string Shown(const std::optional<std::wstring>& value) {
    return value ? '<' + ToUtf8(*value) + '>' : "none";
}

// Every answer of both; returns how many keys were there.
int ExpectSameAnswers(const CPrivateProfile& engine, const CProfileFile& file, const std::string& text) {
    int found = 0;
    for (const wchar_t* section : kSections) {
        for (const wchar_t* key : kKeys) {
            const auto expected = file.GetString(section, key);
            const auto value = engine.GetString(section, key);
            EXPECT_EQ(Shown(value), Shown(expected)) << ToUtf8(section) << '/' << ToUtf8(key) << "\n"
                                                     << testing::PrintToString(text);
            EXPECT_EQ(engine.GetInt(section, key, 77), file.GetInt(section, key))
                << ToUtf8(section) << '/' << ToUtf8(key) << "\n"
                << testing::PrintToString(text);
            found += expected.has_value();
        }
    }
    return found;
}

}  // namespace

TEST(PrivateProfileApi, ReadsHostileFilesAlike) {
    CHostileFiles files;
    int found = 0;
    for (int i = 0; i < 300 && !testing::Test::HasFailure(); ++i) {
        const std::string ansi = files.Next();
        const std::string text = i % 3 == 0 ? AsUtf16(ansi) : ansi;
        found += ExpectSameAnswers(CPrivateProfile(text), CProfileFile(text), text);
    }
    EXPECT_GT(found, 500) << "the files must hold what is asked for";
}

TEST(PrivateProfileApi, WritesAndRemovesAlikeAndReadsBackAlike) {
    constexpr const wchar_t* values[] = {L"new",   L"",      L" padded ",  L"\"quoted\"",
                                         L"'a' b", L"a;b=c", L"caf\u00e9", L"-12"};
    CHostileFiles files;
    for (int i = 0; i < 150 && !testing::Test::HasFailure(); ++i) {
        std::string log;
        const std::string ansi = files.Next();
        const std::string text = i % 3 == 0 ? AsUtf16(ansi) : ansi;
        const CProfileFile file(text);
        CPrivateProfile engine(text);
        for (unsigned edits = 1 + files.Number(5); edits > 0; --edits) {
            const wchar_t* section = files.Pick(kSections);
            if (files.Number(4) == 0) {
                log += "\ndelete " + ToUtf8(section);
                file.Write(section, nullptr, nullptr);
                engine.RemoveSection(section);
                continue;
            }
            const wchar_t* key = files.Pick(kKeys);
            const wchar_t* value = files.Pick(values);
            log += "\nset " + ToUtf8(section) + '/' + ToUtf8(key) + '=' + ToUtf8(value);
            file.Write(section, key, value);
            const CPrivateProfile::Entry entry{key, value};
            engine.SetStrings(section, {&entry, 1});
        }
        log = "file " + text + log + "\nplatform: " + file.Bytes() + "\nengine: " + engine.Serialise();
        ExpectSameAnswers(engine, file, log);
        ExpectSameAnswers(CPrivateProfile(file.Bytes()), file, log);
        ExpectSameAnswers(engine, CProfileFile(engine.Serialise()), log);
    }
}

TEST(PrivateProfileApi, NamedDifferences) {
    struct Case {
        const char* name;
        std::string text;
        const wchar_t* section;
        const wchar_t* key;
        const char* windows;  // and the engine
        const char* wine;
    };
    for (const Case& c : {
             Case{"a header without a bracket", "[s\r\nk=v\r\n", L"s", L"k", "<v>", "none"},
             {"a bracket in a header", "[a]b]\r\nk=v\r\n", L"a", L"k", "<v>", "none"},
             {"a bracket in a header, all of it", "[a]b]\r\nk=v\r\n", L"a]b", L"k", "none", "<v>"},
             {"a key before any section", "k=v\r\n[s]\r\n", L"", L"k", "none", "<v>"},
             {"letters beyond ASCII in another case", "[\xe9]\r\nk\xc9=v\r\n", L"\u00c9", L"k\u00e9", "<v>",
              "none"},
             {"a comment asked for", "[s]\r\n;k=v\r\n", L"s", L";k", "none", "<v>"},
         }) {
        EXPECT_EQ(Shown(CPrivateProfile(c.text).GetString(c.section, c.key)), c.windows) << c.name;
        EXPECT_EQ(Shown(CProfileFile(c.text).GetString(c.section, c.key)), UnderWine() ? c.wine : c.windows)
            << c.name;
    }
}

// On purpose not what the platform does, which writes question marks: its own reader finds the text all the
// same.
TEST(PrivateProfileApi, ThePlatformReadsWhatItsOwnWriterLoses) {
    const CPrivateProfile::Entry entry{L"k", L"'\u0426 \u4fa1 \xd83d\xde00'"};
    const CProfileFile lossy("[s]\r\nold=caf\xe9\r\n");
    lossy.Write(L"s", L"k", entry.value.c_str());
    CPrivateProfile engine("[s]\r\nold=caf\xe9\r\n");
    engine.SetStrings(L"s", {&entry, 1});
    const CProfileFile kept(engine.Serialise());
    const std::wstring bare = entry.value.substr(1, entry.value.size() - 2);
    EXPECT_EQ(Shown(kept.GetString(L"s", L"k")), Shown(bare));
    EXPECT_EQ(Shown(kept.GetString(L"s", L"old")), Shown(engine.GetString(L"s", L"old")));
    if (GetACP() != CP_UTF8) {
        EXPECT_NE(Shown(lossy.GetString(L"s", L"k")), Shown(bare));
    }
}
