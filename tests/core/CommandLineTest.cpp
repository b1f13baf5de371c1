#include <gtest/gtest.h>

#include "core/SCVShchedulerTask.h"

namespace {

using Task = CSCVShchedulerTask;

constexpr std::int32_t Task::*kFlags[] = {
    &Task::m_bResetUrls,    &Task::m_bDeleteUrls,        &Task::m_bDeleteResults, &Task::m_bAddUrls,
    &Task::m_bGenerateUrls, &Task::m_bImportInputValues, &Task::m_bStart,         &Task::m_bRestart,
    &Task::m_bDdrSwitch,    &Task::m_bApplyFilter,       &Task::m_bExportResults, &Task::m_bExportFailedUrls,
    &Task::m_bExit};

constexpr wchar_t kEverySwitch[] =
    LR"("C:\my p\a.scvpr" -rt -dt -dr -at"C:\my u.txt" -gt"C:\s.vbs" -aiv"q,id 1,C:\v.txt" -s -rs -ddr)"
    LR"( -fr"x > 1" -qe"C:\e.csv" -eft"C:\f.txt" -ex)";

// Which fields a switch stands for; that reading is the reverse of writing CommandLineFuzz shows.
TEST(CommandLine, EverySwitchIsWrittenInOrderAndReadBack) {
    Task task;
    EXPECT_EQ(task.BuildCommandLine(), L"\"\"");
    for (const auto flag : kFlags) {
        task.*flag = 1;
    }
    task.m_strProjectPath = L"C:\\my p\\a.scvpr";
    EXPECT_EQ(task.BuildCommandLine(), LR"("C:\my p\a.scvpr" -rt -dt -dr -s -rs -ddr -fr -qe -ex)")
        << "what needs an argument stays out without one";
    task.m_strUrlsFile = L"C:\\my u.txt";
    task.m_strScriptFile = L"C:\\s.vbs";
    task.m_strInputValuesFile = L"C:\\v.txt";
    task.m_strInputElementId = L"id 1";
    task.m_strInputElementName = L"q";
    task.m_strExportFile = L"C:\\e.csv";
    task.m_strFailedUrlsFile = L"C:\\f.txt";
    task.m_strFilterArgument = L"x > 1";
    EXPECT_EQ(task.BuildCommandLine(), kEverySwitch);
    Task read;
    EXPECT_EQ(read.ParseCommandLine(kEverySwitch), 1);
    EXPECT_EQ(read.BuildCommandLine(), kEverySwitch);
    for (const auto flag : kFlags) {
        EXPECT_EQ(read.*flag, 1) << &flag - kFlags;
        task.*flag = 0;
    }
    EXPECT_EQ(task.BuildCommandLine(), LR"("C:\my p\a.scvpr" -qe"C:\e.csv")")
        << "of all arguments only the export file writes its switch by itself";
}

TEST(CommandLine, ReadingThenWriting) {
    const struct {
        const wchar_t* read;
        const wchar_t* written;
    } cases[] = {
        {LR"(C:\a.scvpr /S -EX /aT"u" -Aiv"q,i,f" /eFt"g")",
         LR"("C:\a.scvpr" -at"u" -aiv"q,i,f" -s -eft"g" -ex)"},
        // The first of two counts, wherever it stands; order does not.
        {LR"("a" -ex -at"1" -at"2" -s)", LR"("a" -at"1" -s -ex)"},
        {LR"(-s "a")", LR"("-s" -s)"},
        {LR"( "a" -s)", LR"("" -s)"},
        // A flag switch is the whole token, an argument switch the start of one.
        {LR"("a" -st -exe -rsx --s - / -dd -rft -rft"x")", LR"("a")"},
        {LR"("a" -fr -qe -at -gt"" -eft)", LR"("a" -fr -qe)"},
        {LR"("a" -fr""x"" -qe"b"c")", LR"("a" -fr"x" -qe"b"c")"},
        {LR"("a" -frab c -qe'd e')", LR"("a" -fr"ab" -qe"'d e'")"},
        {LR"("a" -at"never closed -s)", LR"("a" -at"never closed -s")"},
        {LR"("a" -at"ends\" -s)", LR"("a" -at"ends\" -s)"},
        // Name, id and file of the input values.
        {LR"("a" -aiv"q,,C:\v.txt")", LR"("a" -aiv"q,,C:\v.txt")"},
        {LR"("a" -aiv"q,C:\v.txt")", LR"("a" -aiv"q,,C:\v.txt")"},
        {LR"("a" -aiv",i,C:\v.txt")", LR"("a" -aiv",i,C:\v.txt")"},
        {LR"("a" -aiv",,C:\v.txt")", LR"("a")"},
        {LR"("a" -aiv"'q,w', x ,i,C:\v.txt,5")", LR"("a" -aiv"q,w,x,i")"},
        {LR"("a" -aiv"q,i,")", LR"("a")"},
    };
    for (const auto& each : cases) {
        Task task;
        task.ParseCommandLine(each.read);
        EXPECT_EQ(task.BuildCommandLine(), each.written) << testing::PrintToString(each.read);
    }
}

TEST(CommandLine, ReadingClearsFlagsAndKeepsTheArgumentsOfAbsentSwitches) {
    Task task;
    task.ParseCommandLine(kEverySwitch);
    task.ParseCommandLine(L"b -aiv\"n,f\" -qe");
    EXPECT_EQ(task.m_strUrlsFile, L"C:\\my u.txt");
    EXPECT_EQ(task.BuildCommandLine(), L"\"b\" -aiv\"n,id 1,f\" -qe") << "two fields leave the id alone";
    task.ParseCommandLine(L"");
    EXPECT_EQ(task.BuildCommandLine(), L"\"b\"") << "no token, no path";
    task.ParseCommandLine(L"b -aiv\"only a file \"");
    EXPECT_EQ(task.BuildCommandLine(), L"\"b\" -aiv\"n,id 1,only a file \"");
}

}  // namespace
