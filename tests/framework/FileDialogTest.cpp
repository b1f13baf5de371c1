#include "framework/FileDialog.h"

#include <gtest/gtest.h>

#include "tests/support/FileDialogAnswer.h"

namespace {

using namespace std::string_literals;
using Paths = std::vector<std::wstring>;

TEST(FileDialog, AnswersThePathsInTheirOrder) {
    struct {
        const char* what;
        std::wstring buffer;
        Paths paths;
    } const cases[] = {
        {"one path", L"C:\\a b.scvpr"s, {L"C:\\a b.scvpr"}},
        {"a folder and names", L"C:\\dir\0z.scvpr\0a.scvpr"s, {L"C:\\dir\\z.scvpr", L"C:\\dir\\a.scvpr"}},
        {"a root and names", L"C:\\\0a\0b\0c"s, {L"C:\\a", L"C:\\b", L"C:\\c"}},
        {"nothing", L""s, {}},
    };
    for (const auto& item : cases) {
        SCOPED_TRACE(item.what);
        FileDialogAnswer answer(item.buffer);
        CFileDialog dialog(true, L"scvpr", L"", OFN_ALLOWMULTISELECT, L"", nullptr);
        EXPECT_EQ(dialog.DoModal(), IDOK);
        EXPECT_EQ(dialog.GetPathNames(), item.paths);
        EXPECT_EQ(dialog.GetPathName(), item.paths.empty() ? L"" : item.paths.front());
        FileDialogAnswer cancel(std::nullopt);
        EXPECT_EQ(dialog.DoModal(), IDCANCEL);
        EXPECT_TRUE(dialog.GetPathNames().empty()) << "nothing is left of the answer before";
    }
}

TEST(FileDialog, AsksTheSystemForWhatItWasGiven) {
    FileDialogAnswer answer(L"C:\\x.exe"s);
    CFileDialog dialog(false, L"exe", L"C:\\start.exe", OFN_HIDEREADONLY,
                       L"Programs (*.exe)|*.exe|All Files (*.*)|*.*||", nullptr);
    dialog.SetInitialFolder(L"C:\\dir\\");
    dialog.SetBufferSize(262'144);
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_FALSE(answer.open);
    EXPECT_EQ(answer.flags & (OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT | OFN_EXPLORER | OFN_NOCHANGEDIR),
              DWORD{OFN_HIDEREADONLY | OFN_EXPLORER | OFN_NOCHANGEDIR});
    EXPECT_EQ(answer.bufferSize, 262'144U);
    EXPECT_EQ(answer.fileName, L"C:\\start.exe");
    EXPECT_EQ(answer.folder, L"C:\\dir\\");
    EXPECT_EQ(answer.extension, L"exe");
    EXPECT_EQ(answer.filter, L"Programs (*.exe)|*.exe|All Files (*.*)|*.*|");

    const std::wstring longName(40'000, L'x');
    EXPECT_EQ(CFileDialog(true, nullptr, longName, 0, L"", nullptr).DoModal(), IDOK);
    EXPECT_TRUE(answer.open);
    EXPECT_EQ(answer.fileName, longName) << "the buffer grows with the name that it starts with";
}

}  // namespace
