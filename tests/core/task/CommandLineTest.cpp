#include <gtest/gtest.h>

#include "core/task/SCVShchedulerTask.h"

using Task = CSCVShchedulerTask;

// Which fields a switch stands for; that reading is the reverse of writing CommandLineFuzz shows.
TEST(CommandLine, EachFlagAndArgumentHasItsSwitch) {
    const std::pair<std::int32_t Task::*, std::wstring> flags[] = {
        {&Task::m_bResetUrls, L" -rt"},
        {&Task::m_bDeleteUrls, L" -dt"},
        {&Task::m_bDeleteResults, L" -dr"},
        {&Task::m_bAddUrls, L" -at\"C:\\my u.txt\""},
        {&Task::m_bGenerateUrls, L" -gt\"C:\\s.vbs\""},
        {&Task::m_bImportInputValues, L" -aiv\"q,id 1,C:\\v.txt\""},
        {&Task::m_bStart, L" -s"},
        {&Task::m_bRestart, L" -rs"},
        {&Task::m_bDdrSwitch, L" -ddr"},
        {&Task::m_bApplyFilter, L" -fr\"x > 1\""},
        {&Task::m_bExportResults, L" -qe\"C:\\e.csv\""},
        {&Task::m_bExportFailedUrls, L" -eft\"C:\\f.txt\""},
        {&Task::m_bExit, L" -ex"},
    };
    std::wstring all = L"\"C:\\my p\\a.scvpr\"";
    Task task;
    for (const auto& [flag, text] : flags) {
        all += text;
        task.ParseCommandLine(L"x" + text);
        for (const auto& [other, ignored] : flags) {
            EXPECT_EQ(task.*other, other == flag ? 1 : 0) << text;
        }
    }
    task.ParseCommandLine(all);
    EXPECT_EQ(task.BuildCommandLine(), all) << "in this order";
    // Flags go, the arguments of absent switches stay, and so does the path when there is no token.
    task.ParseCommandLine(L"b -aiv\"n,f\"");
    EXPECT_EQ(task.BuildCommandLine(), L"\"b\" -aiv\"n,id 1,f\" -qe\"C:\\e.csv\"")
        << "of all arguments only the export file writes its switch by itself";
    task.ParseCommandLine(L"");
    EXPECT_EQ(task.m_strProjectPath, L"b");
    EXPECT_EQ(task.m_strUrlsFile, L"C:\\my u.txt");
}

TEST(CommandLine, ReadingThenWriting) {
    const std::tuple<const char*, const wchar_t*, const wchar_t*> cases[] = {
        {"the first of two counts, in any order", LR"(C:\a.scvpr /S -EX /aT"u" -at"w" -Aiv"q,i,f")",
         LR"("C:\a.scvpr" -at"u" -aiv"q,i,f" -s -ex)"},
        {"a flag is a whole token", LR"("a" -st -exe -rsx --s - / -dd -rft -rft"x")", LR"("a")"},
        {"which need their argument", LR"("a" -fr -qe -at -gt"" -eft)", LR"("a" -fr -qe)"},
        {"values without an id", LR"("a" -aiv"q,C:\v.txt")", LR"("a" -aiv"q,,C:\v.txt")"},
        {"values without a name", LR"("a" -aiv",i,C:\v.txt")", LR"("a" -aiv",i,C:\v.txt")"},
        {"values without an element", LR"("a" -aiv"only a file")", LR"("a")"},
    };
    for (const auto& [label, read, written] : cases) {
        Task task;
        task.ParseCommandLine(read);
        EXPECT_EQ(task.BuildCommandLine(), written) << label;
    }
}
