#include "framework/TextFile.h"

#include <gmock/gmock.h>

#include "tests/support/MessageRecorder.h"
#include "tests/support/TemporaryFolder.h"
#include "util/FileTests.h"
#include "util/Handle.h"
#include "util/SystemError.h"

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

constexpr UINT kRetryCancel = 0x15;

std::string BytesOf(const std::wstring& path) {
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

CFileHandle HoldForWriting(const std::wstring& path) {
    return CFileHandle(CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                   OPEN_EXISTING, 0, nullptr));
}

class TextFile : public testing::Test {
protected:
    TemporaryFolder m_folder;
    MessageRecorder m_cancels{IDCANCEL};
};

TEST_F(TextFile, ReadsUtf8AndMarkedUtf16) {
    const struct {
        const char* what;
        std::string bytes;
        std::wstring text;
    } cases[] = {
        {"empty", "", L""},
        {"UTF-8", "a\t\xC3\xA9\xE4\xBE\xA1\xF0\x9F\x98\x80\r\n\n", L"a\t\u00e9\u4fa1\U0001F600\r\n\n"},
        {"UTF-8 with a mark",
         "\xEF\xBB\xBF"
         "a",
         L"\uFEFF"
         L"a"},
        {"UTF-8 up to a zero", std::string("ab\0c", 4), L"ab"},
        {"bytes that are no UTF-8",
         "a\xFF"
         "b",
         L"a\uFFFD"
         L"b"},
        {"UTF-16LE",
         std::string("\xFF\xFE"
                     "a\0\xA1\x4F\x3D\xD8\0\xDE",
                     10),
         L"\uFEFF"
         L"a\u4fa1\U0001F600"},
        {"UTF-16LE with a zero and an odd last byte", std::string("\xFF\xFE\0\0b\0c", 7),
         std::wstring(L"\uFEFF\0b", 3)},
        {"nothing but a mark", "\xFF\xFE", L"\uFEFF"},
        {"half a mark", "\xFF", L"\uFFFD"},
        {"UTF-16LE without a mark", std::string("a\0b\0", 4), L"a"},
        {"UTF-16BE", std::string("\xFE\xFF\0a", 4), L"\uFFFD\uFFFD"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(ReadTextFile(m_folder.File(L"f", each.bytes)), each.text) << each.what;
    }
    EXPECT_THAT(m_cancels.texts, IsEmpty());
}

TEST_F(TextFile, SavesUtf8InPlaceOfOrBehindWhatIsThere) {
    const struct {
        const wchar_t* what;
        std::wstring text;
        std::string bytes;
    } cases[] = {
        {L"text", L"a\t\u00e9\u4fa1\U0001F600\r\n\n", "a\t\xC3\xA9\xE4\xBE\xA1\xF0\x9F\x98\x80\r\n\n"},
        {L"empty", L"", ""},
        {L"zero", std::wstring(L"ab\0c", 4), "ab"},
        {L"lone surrogate",
         L"a\xD800"
         L"b",
         "a\xEF\xBF\xBD"
         "b"},
    };
    for (const auto& each : cases) {
        const std::wstring path = m_folder.File(each.what, "was longer than what comes now");
        EXPECT_EQ(SaveTextFile(each.text, path, false), 1);
        EXPECT_EQ(BytesOf(path), each.bytes);
        EXPECT_EQ(SaveTextFile(each.text, path, true), 1);
        EXPECT_EQ(BytesOf(path), each.bytes + each.bytes);
    }
    const std::wstring path = m_folder.Path(L"new");
    EXPECT_EQ(WriteBytesToFile("\xFF\0\n", 3, path, true), 1);
    EXPECT_EQ(BytesOf(path), std::string("\xFF\0\n", 3));
    EXPECT_EQ(WriteBytesToFile(nullptr, 0, path, false), 1);
    EXPECT_EQ(BytesOf(path), "");
    EXPECT_THAT(m_cancels.texts, IsEmpty());
}

TEST_F(TextFile, TwentyMegabytes) {
    std::wstring text;
    while (text.size() < 20'000'000) {
        text += L"dim result \u0416\u4fa1 ' twenty bytes\r\n";
    }
    const std::wstring path = m_folder.Path(L"large");
    EXPECT_EQ(SaveTextFile(text, path, false), 1);
    EXPECT_GT(std::filesystem::file_size(path), 20'000'000U);
    EXPECT_TRUE(ReadTextFile(path) == text);
    EXPECT_EQ(WriteBytesToFile("\xFF\xFE", 2, path, false), 1);
    EXPECT_EQ(WriteBytesToFile(text.data(), text.size() * sizeof(wchar_t), path, true), 1);
    EXPECT_GT(std::filesystem::file_size(path), 20'000'000U);
    EXPECT_TRUE(ReadTextFile(path) == L"\uFEFF" + text);
}

TEST_F(TextFile, AFileThatDoesNotOpenIsAskedForUntilTheUserCancels) {
    const std::wstring held = m_folder.File(L"held", "old");
    const std::wstring missing = m_folder.Path(L"missing");
    CFileHandle holder = HoldForWriting(held);
    EXPECT_EQ(ReadTextFile(held), L"") << "although the holder shares it";
    EXPECT_EQ(SaveTextFile(L"new", held, false), 0);
    EXPECT_EQ(SaveTextFile(L"new", held, true), 0);
    EXPECT_EQ(ReadTextFile(missing), L"");
    EXPECT_EQ(FileExists(missing), 0);
    EXPECT_EQ(ReadTextFile(m_folder.Path()), L"");
    EXPECT_EQ(SaveTextFile(L"new", m_folder.Path(), false), 0);
    const std::wstring busy = SystemErrorText(ERROR_SHARING_VIOLATION);
    const std::wstring denied = SystemErrorText(ERROR_ACCESS_DENIED);
    EXPECT_THAT(m_cancels.texts, ElementsAre(busy + L"\r\n" + held, StartsWith(busy), StartsWith(busy),
                                             StartsWith(SystemErrorText(ERROR_FILE_NOT_FOUND)),
                                             StartsWith(denied), StartsWith(denied)));
    EXPECT_THAT(m_cancels.styles, Each(kRetryCancel));

    MessageRecorder retries(IDRETRY);
    retries.whileOpen = [&] {
        if (retries.texts.size() == 3) {
            holder.Close();
        }
    };
    EXPECT_EQ(ReadTextFile(held), L"old");
    EXPECT_EQ(retries.texts.size(), 3U);
    holder = HoldForWriting(held);
    retries.texts.clear();
    EXPECT_EQ(SaveTextFile(L"new", held, true), 1);
    EXPECT_EQ(retries.texts.size(), 3U);
    EXPECT_EQ(BytesOf(held), "oldnew") << "a retry adds as the first try would have";
}

TEST_F(TextFile, MissingFoldersAreMade) {
    for (const bool append : {false, true}) {
        const std::wstring path = m_folder.Path(append ? L"a\\b c\\\u4fa1\\f" : L"d\\e\\f");
        EXPECT_EQ(SaveTextFile(L"x", path, append), 1);
        EXPECT_EQ(BytesOf(path), "x");
    }
    EXPECT_EQ(SaveTextFile(L"x", m_folder.Path(L"a") + L"\\\\two\\\\\\f", false), 1);
    EXPECT_EQ(BytesOf(m_folder.Path(L"a\\two\\f")), "x");
    EXPECT_THAT(m_cancels.texts, IsEmpty());

    // A file stands where a folder should.
    const std::wstring inTheWay = m_folder.File(L"file", "kept");
    EXPECT_EQ(SaveTextFile(L"x", inTheWay + L"\\g\\f", false), 0);
    EXPECT_EQ(m_cancels.styles, std::vector{kRetryCancel});
    EXPECT_EQ(BytesOf(inTheWay), "kept");
    MessageRecorder retries(IDRETRY);
    retries.whileOpen = [&] { DeleteFileW(inTheWay.c_str()); };
    EXPECT_EQ(SaveTextFile(L"x", inTheWay + L"\\g\\f", false), 1);
    EXPECT_EQ(retries.texts.size(), 1U);
    EXPECT_EQ(BytesOf(inTheWay + L"\\g\\f"), "x");
}

// Kept on purpose: backslashes at the beginning are lost, those of a network path among them.
TEST_F(TextFile, FoldersOfARootedPathAreMadeBelowTheCurrentFolder) {
    wchar_t before[MAX_PATH];
    GetCurrentDirectoryW(MAX_PATH, before);
    SetCurrentDirectoryW(m_folder.Path().c_str());
    const std::wstring name = std::filesystem::path(m_folder.Path()).filename().wstring();
    EXPECT_EQ(SaveTextFile(L"x", L"\\" + name + L"\\n\\f", false), 0);
    SetCurrentDirectoryW(before);
    EXPECT_EQ(m_cancels.styles, std::vector{kRetryCancel});
    EXPECT_NE(DirectoryExists(m_folder.Path(name + L"\\n")), 0);
}

TEST_F(TextFile, AFullDiskIsTold) {
    const std::wstring full = L"Z:\\dev\\full";
    if (FileExists(full) == 0) {
        GTEST_SKIP() << "no device that is always full on this system";
    }
    EXPECT_EQ(SaveTextFile(L"x", full, false), 0);
    EXPECT_EQ(SaveTextFile(L"x", full, true), 0);
    EXPECT_THAT(m_cancels.texts, Each(SystemErrorText(ERROR_DISK_FULL) + L"\r\n" + full));
    EXPECT_THAT(m_cancels.styles, ElementsAre(MB_OK, MB_OK));
}

TEST_F(TextFile, WhatABoxTellsIsCut) {
    const std::wstring path = m_folder.Path(std::wstring(240, L'x'));
    EXPECT_EQ(ReadTextFile(path), L"");
    ASSERT_EQ(m_cancels.texts.size(), 1U);
    EXPECT_EQ(m_cancels.texts[0].size(), 260U);
}

}  // namespace
