#include "framework/TextFile.h"

#include <gmock/gmock.h>

#include "tests/support/MessageRecorder.h"
#include "tests/support/TemporaryFolder.h"
#include "util/FileTests.h"
#include "util/Handle.h"
#include "util/SystemError.h"

namespace {

using namespace std::string_literals;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr UINT kRetryCancel = 0x15;

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
        std::string bytes;
        std::wstring text;
    } cases[] = {
        {"", L""},
        {"a\t\xC3\xA9\xE4\xBE\xA1\xF0\x9F\x98\x80\r\n\n", L"a\t\u00e9\u4fa1\U0001F600\r\n\n"},
        {"\xEF\xBB\xBF-", L"\uFEFF-"},
        {"ab\0c"s, L"ab"},
        {"-\xFF-", L"-\uFFFD-"},
        {"\xFF\xFE-\0\xA1\x4F\x3D\xD8\0\xDE"s, L"\uFEFF-\u4fa1\U0001F600"},
        {"\xFF\xFE\0\0b\0c"s, L"\uFEFF\0b"s},  // a zero and an odd last byte
        {"\xFF\xFE", L"\uFEFF"},
        {"\xFF", L"\uFFFD"},
        {"\xFE\xFF\0a"s, L"\uFFFD\uFFFD"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(ReadTextFile(m_folder.File(L"f", each.bytes)), each.text)
            << testing::PrintToString(each.bytes);
    }
    EXPECT_THAT(m_cancels.texts, IsEmpty());
}

TEST_F(TextFile, SavesUtf8InPlaceOfOrBehindWhatIsThere) {
    const std::pair<std::wstring, std::string> cases[] = {
        {L"a\t\u00e9\u4fa1\U0001F600\r\n\n", "a\t\xC3\xA9\xE4\xBE\xA1\xF0\x9F\x98\x80\r\n\n"},
        {L"", ""},
        {L"ab\0c"s, "ab"},
        {L"-\xD800-", "-\xEF\xBF\xBD-"}};
    for (const auto& [text, bytes] : cases) {
        const std::wstring path = m_folder.File(L"f", "was longer than what comes now");
        EXPECT_EQ(SaveTextFile(text, path, false), 1);
        EXPECT_EQ(BytesOf(path), bytes);
        EXPECT_EQ(SaveTextFile(text, path, true), 1);
        EXPECT_EQ(BytesOf(path), bytes + bytes);
    }
    const std::wstring path = m_folder.Path(L"new");
    EXPECT_EQ(WriteBytesToFile("\xFF\0\n", 3, path, true), 1);
    EXPECT_EQ(BytesOf(path), "\xFF\0\n"s);
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
    EXPECT_TRUE(ReadTextFile(path) == text);
    EXPECT_EQ(WriteBytesToFile("\xFF\xFE", 2, path, false), 1);
    EXPECT_EQ(WriteBytesToFile(text.data(), text.size() * sizeof(wchar_t), path, true), 1);
    EXPECT_TRUE(ReadTextFile(path) == L"\uFEFF" + text);
}

TEST_F(TextFile, AFileThatDoesNotOpenIsAskedForUntilTheUserCancels) {
    const std::wstring held = m_folder.File(L"held", "old");
    const std::wstring missing = m_folder.Path(std::wstring(240, L'x'));
    CFileHandle holder = HoldForWriting(held);
    EXPECT_EQ(ReadTextFile(held), L"") << "although the holder shares it";
    EXPECT_EQ(SaveTextFile(L"new", held, false), 0);
    EXPECT_EQ(ReadTextFile(missing), L"");
    EXPECT_EQ(FileExists(missing), 0);
    EXPECT_EQ(SaveTextFile(L"new", m_folder.Path(), false), 0);
    const std::wstring busy = SystemErrorText(ERROR_SHARING_VIOLATION) + L"\r\n" + held;
    EXPECT_THAT(
        m_cancels.texts,
        ElementsAre(busy, busy, (SystemErrorText(ERROR_FILE_NOT_FOUND) + L"\r\n" + missing).substr(0, 260),
                    SystemErrorText(ERROR_ACCESS_DENIED) + L"\r\n" + m_folder.Path()));
    EXPECT_THAT(m_cancels.styles, Each(kRetryCancel));

    MessageRecorder retries(IDRETRY);
    retries.whileOpen = [&] {
        if (retries.texts.size() % 3 == 0) {
            holder.Close();
        }
    };
    EXPECT_EQ(ReadTextFile(held), L"old");
    holder = HoldForWriting(held);
    EXPECT_EQ(SaveTextFile(L"new", held, true), 1);
    EXPECT_EQ(retries.texts.size(), 6U);
    EXPECT_EQ(BytesOf(held), "oldnew") << "a retry adds as the first try would have";
}

TEST_F(TextFile, MissingFoldersAreMade) {
    for (const wchar_t* below : {L"d\\e\\f", L"a\\b c\\\u4fa1\\f", L"a\\\\two\\\\\\f"}) {
        const std::wstring path = m_folder.Path() + L'\\' + below;
        EXPECT_EQ(SaveTextFile(L"x", path, below[0] == L'a'), 1);
        EXPECT_EQ(BytesOf(path), "x");
    }
    EXPECT_THAT(m_cancels.texts, IsEmpty());

    // A file stands where a folder should.
    const std::wstring inTheWay = m_folder.File(L"file", "kept");
    EXPECT_EQ(SaveTextFile(L"x", inTheWay + L"\\g\\f", false), 0);
    EXPECT_EQ(m_cancels.styles, std::vector{kRetryCancel});
    EXPECT_EQ(BytesOf(inTheWay), "kept");
    MessageRecorder retries(IDRETRY);
    retries.whileOpen = [&] { DeleteFileW(inTheWay.c_str()); };
    EXPECT_EQ(SaveTextFile(L"x", inTheWay + L"\\g\\f", false), 1);
    EXPECT_EQ(BytesOf(inTheWay + L"\\g\\f"), "x");
}

// Kept on purpose: backslashes at the beginning are lost, those of a network path among them.
TEST_F(TextFile, FoldersOfARootedPathAreMadeBelowTheCurrentFolder) {
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(m_folder.Path());
    const std::wstring name = std::filesystem::path(m_folder.Path()).filename().wstring();
    EXPECT_EQ(SaveTextFile(L"x", L"\\" + name + L"\\n\\f", false), 0);
    std::filesystem::current_path(before);
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

}  // namespace
