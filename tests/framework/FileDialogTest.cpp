#include "framework/FileDialog.h"

#include <gtest/gtest.h>

#include "tests/support/FileDialogAnswer.h"

namespace {

using namespace std::string_literals;
using Paths = std::vector<std::wstring>;

TEST(FileDialog, AnswersThePathsInTheirOrder) {
    const struct {
        std::wstring buffer;
        Paths paths;
    } cases[] = {{L"C:\\a b.scvpr"s, {L"C:\\a b.scvpr"}},
                 {L"C:\\dir\0z.scvpr\0a.scvpr"s, {L"C:\\dir\\z.scvpr", L"C:\\dir\\a.scvpr"}},
                 {L"C:\\\0a\0b\0c"s, {L"C:\\a", L"C:\\b", L"C:\\c"}},
                 {L""s, {}}};
    for (const auto& item : cases) {
        CFileDialog dialog(true, L"scvpr", L"", OFN_ALLOWMULTISELECT, L"", nullptr);
        {
            const FileDialogAnswer answer(item.buffer);
            EXPECT_EQ(dialog.DoModal(), IDOK);
        }
        EXPECT_EQ(dialog.GetPathNames(), item.paths);
        EXPECT_EQ(dialog.GetPathName(), item.paths.empty() ? L"" : item.paths.front());
        const FileDialogAnswer cancel(std::nullopt);
        EXPECT_EQ(dialog.DoModal(), IDCANCEL);
        EXPECT_TRUE(dialog.GetPathNames().empty()) << "nothing is left of the answer before";
    }
}

TEST(FileDialog, AsksTheSystemForWhatItWasGiven) {
    const FileDialogAnswer answer(L"C:\\x.exe"s);
    const std::wstring longName(40'000, L'x');
    CFileDialog dialog(false, L"exe", longName, OFN_HIDEREADONLY,
                       L"Programs (*.exe)|*.exe|All Files (*.*)|*.*||", nullptr);
    dialog.SetInitialFolder(L"C:\\dir\\");
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_FALSE(answer.open);
    EXPECT_EQ(answer.flags & (OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT | OFN_EXPLORER | OFN_NOCHANGEDIR),
              DWORD{OFN_HIDEREADONLY | OFN_EXPLORER | OFN_NOCHANGEDIR});
    EXPECT_EQ(answer.fileName, longName) << "the buffer grows with the name that it starts with";
    EXPECT_EQ(answer.folder, L"C:\\dir\\");
    EXPECT_EQ(answer.extension, L"exe");
    EXPECT_EQ(answer.filter, L"Programs (*.exe)|*.exe|All Files (*.*)|*.*|");
}

}  // namespace
