#include "framework/TextFile.h"

#include <gmock/gmock.h>

#include "tests/support/MessageRecorder.h"
#include "tests/support/TemporaryFolder.h"
#include "util/win32/Handle.h"
#include "util/win32/SystemError.h"

namespace {

using namespace std::string_literals;
using testing::ElementsAre;

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
    const std::tuple<const char*, std::string, std::wstring> cases[] = {
        {"UTF-8 with a mark", "\xEF\xBB\xBF-", L"\uFEFF-"},
        {"zero byte", "ab\0c"s, L"ab"},
        {"invalid UTF-8", "-\xFF-", L"-\uFFFD-"},
        {"UTF-16LE", "\xFF\xFE-\0\xA1\x4F\x3D\xD8\0\xDE"s, L"\uFEFF-\u4fa1\U0001F600"},
        {"zero and an odd last byte", "\xFF\xFE\0\0b\0c"s, L"\uFEFF\0b"s},
        {"UTF-16BE", "\xFE\xFF\0a"s, L"\uFFFD\uFFFD"},
    };
    for (const auto& [label, bytes, text] : cases) {
        EXPECT_EQ(ReadTextFile(m_folder.File(L"f", bytes)), text) << label;
    }
}

TEST_F(TextFile, SavesUtf8OverOrBehindTheOldText) {
    const std::string bytes = "a\t\xC3\xA9\xE4\xBE\xA1\xF0\x9F\x98\x80\r\n\n";
    const std::wstring path = m_folder.File(L"f", "was longer than what comes now, much longer indeed");
    EXPECT_EQ(SaveTextFile(L"a\t\u00e9\u4fa1\U0001F600\r\n\n", path, false), 1);
    EXPECT_EQ(BytesOf(path), bytes);
    EXPECT_EQ(SaveTextFile(L"-\xD800\0c"s, path, true), 1);
    EXPECT_EQ(BytesOf(path), bytes + "-\xEF\xBF\xBD");
    EXPECT_EQ(ReadTextFile(path), L"a\t\u00e9\u4fa1\U0001F600\r\n\n-\uFFFD");
}

TEST_F(TextFile, AsksUntilTheUserCancels) {
    const std::wstring held = m_folder.File(L"held", "old");
    const std::wstring missing = m_folder.Path(std::wstring(240, L'x'));
    CFileHandle holder = HoldForWriting(held);
    EXPECT_EQ(ReadTextFile(held), L"") << "although the holder shares it";
    EXPECT_EQ(SaveTextFile(L"new", held, false), 0);
    EXPECT_EQ(ReadTextFile(missing), L"");
    const std::wstring busy = SystemErrorText(ERROR_SHARING_VIOLATION) + L"\r\n" + held;
    EXPECT_THAT(
        m_cancels.texts,
        ElementsAre(busy, busy, (SystemErrorText(ERROR_FILE_NOT_FOUND) + L"\r\n" + missing).substr(0, 260)));
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

TEST_F(TextFile, OnlyRetryTriesAgain) {
    // When the program's window closes a message box, the system returns none of the box's buttons.
    MessageRecorder gone(0);
    gone.whileOpen = [&] {
        if (gone.texts.size() > 2) {
            throw std::runtime_error("asked for ever");
        }
    };
    const std::wstring held = m_folder.File(L"held", "old");
    const CFileHandle holder = HoldForWriting(held);
    EXPECT_EQ(ReadTextFile(held), L"");
    EXPECT_EQ(SaveTextFile(L"new", held, false), 0);
    EXPECT_EQ(gone.texts.size(), 2U);
}

TEST_F(TextFile, MissingFoldersAreCreated) {
    const std::wstring path = m_folder.Path() + L"\\a\\\\b \u4fa1\\f";
    EXPECT_EQ(SaveTextFile(L"x", path, true), 1);
    EXPECT_EQ(BytesOf(path), "x");
    const std::wstring inTheWay = m_folder.File(L"file", "kept");
    EXPECT_EQ(SaveTextFile(L"x", inTheWay + L"\\g\\f", false), 0);
    EXPECT_EQ(m_cancels.texts.size(), 1U) << "only of the file where a folder should be";
}

}  // namespace
