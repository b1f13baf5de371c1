#include <gtest/gtest.h>

#include <random>

#include "core/SCVShchedulerTask.h"

namespace {

using Task = CSCVShchedulerTask;

constexpr std::int32_t Task::*kFlags[] = {
    &Task::m_bResetUrls,    &Task::m_bDeleteUrls,        &Task::m_bDeleteResults, &Task::m_bAddUrls,
    &Task::m_bGenerateUrls, &Task::m_bImportInputValues, &Task::m_bStart,         &Task::m_bRestart,
    &Task::m_bDdrSwitch,    &Task::m_bApplyFilter,       &Task::m_bExportResults, &Task::m_bExportFailedUrls,
    &Task::m_bExit};
constexpr std::wstring Task::*kTexts[] = {
    &Task::m_strProjectPath,     &Task::m_strUrlsFile,       &Task::m_strScriptFile,
    &Task::m_strInputValuesFile, &Task::m_strInputElementId, &Task::m_strInputElementName,
    &Task::m_strExportFile,      &Task::m_strFailedUrlsFile, &Task::m_strFilterArgument};

void ExpectSameCommands(const Task& left, const Task& right) {
    for (const auto& flag : kFlags) {
        EXPECT_EQ(left.*flag != 0, right.*flag != 0) << "flag " << &flag - kFlags;
    }
    for (const auto& text : kTexts) {
        EXPECT_EQ(left.*text, right.*text) << "text " << &text - kTexts;
    }
}

// What building makes of a text that was read.
std::wstring Rebuilt(std::wstring_view text) {
    Task task;
    EXPECT_EQ(task.ParseCommandLine(text), 1);
    return task.BuildCommandLine();
}

const std::wstring kEverySwitch =
    LR"("C:\my p\a.scvpr" -rt -dt -dr -at"C:\my u.txt" -gt"C:\s.vbs" -aiv"q,id 1,C:\v.txt" -s -rs -ddr)"
    LR"( -fr"x > 1" -qe"C:\e.csv" -eft"C:\f.txt" -ex)";

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
    ExpectSameCommands(task, read);

    for (const auto flag : kFlags) {
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
        {L"", L"\"\""},
        {LR"("C:\p\a.scvpr" -s -ex)", LR"("C:\p\a.scvpr" -s -ex)"},
        {LR"(C:\a.scvpr /S -EX /aT"u" -Aiv"q,i,f" /eFt"g")",
         LR"("C:\a.scvpr" -at"u" -aiv"q,i,f" -s -eft"g" -ex)"},
        // The first of two counts, wherever it stands; order does not.
        {LR"("a" -ex -at"1" -at"2" -s)", LR"("a" -at"1" -s -ex)"},
        {LR"(-s "a")", LR"("-s" -s)"},
        {LR"("/at/b")", LR"("/at/b" -at"/b")"},
        {LR"( "a" -s)", LR"("" -s)"},
        // A flag switch is the whole token, an argument switch the start of one.
        {LR"("a" -st -exe -rsx --s - / -dd)", LR"("a")"},
        {LR"("a" -rft -rft"x")", LR"("a")"},
        {LR"("a" -fr)", LR"("a" -fr)"},
        {LR"("a" -fr -qe)", LR"("a" -fr -qe)"},
        {LR"("a" -at -gt"" -eft)", LR"("a")"},
        {LR"("a" -fr""x"" -qe"b"c")", LR"("a" -fr"x" -qe"b"c")"},
        {LR"("a" -frab c -qe'd e')", LR"("a" -fr"ab" -qe"'d e'")"},
        {LR"("a" -at"never closed -s)", LR"("a" -at"never closed -s")"},
        {LR"("a" -at"ends\" -s)", LR"("a" -at"ends\" -s)"},
        // Name, id and file of the input values.
        {LR"("a" -aiv"q,,C:\v.txt")", LR"("a" -aiv"q,,C:\v.txt")"},
        {LR"("a" -aiv"q,C:\v.txt")", LR"("a" -aiv"q,,C:\v.txt")"},
        {LR"("a" -aiv",i,C:\v.txt")", LR"("a" -aiv",i,C:\v.txt")"},
        {LR"("a" -aiv",,C:\v.txt")", LR"("a")"},
        {LR"("a" -aiv"C:\v.txt")", LR"("a")"},
        {LR"("a" -aiv"q, w ,i,C:\v.txt,5")", LR"("a" -aiv"q,w,i")"},
        {LR"("a" -aiv"'q,w',i,C:\v.txt")", LR"("a" -aiv"q,w,i,C:\v.txt")"},
        {LR"("a" -aiv"q,i,")", LR"("a")"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(Rebuilt(each.read), each.written) << testing::PrintToString(each.read);
    }
}

TEST(CommandLine, ReadingClearsFlagsAndKeepsTheArgumentsOfAbsentSwitches) {
    Task task;
    task.ParseCommandLine(kEverySwitch);
    EXPECT_EQ(task.ParseCommandLine(L"b -aiv\"n,f\" -qe"), 1);
    EXPECT_EQ(task.m_strUrlsFile, L"C:\\my u.txt");
    EXPECT_EQ(task.m_strInputElementId, L"id 1") << "two fields leave the id alone";
    EXPECT_EQ(task.m_strExportFile, L"") << "present without an argument";
    EXPECT_EQ(task.BuildCommandLine(), L"\"b\" -aiv\"n,id 1,f\" -qe");

    task.ParseCommandLine(L"");
    EXPECT_EQ(task.BuildCommandLine(), L"\"b\"") << "no token, no path";
    EXPECT_EQ(task.m_strInputElementName, L"n");
    task.ParseCommandLine(L"b -aiv\"only a file \"");
    EXPECT_EQ(task.m_strInputValuesFile, L"only a file ");
    EXPECT_EQ(task.m_strInputElementName, L"n");
}

// Whatever texts without a quote the fields hold, a task comes back from its command line as it went in.
TEST(CommandLine, WrittenThenReadIsTheSameTask) {
    std::mt19937 random(20240331);
    const std::wstring alphabet = L"aZ /-\\.;%\t\u0416\u4fa1";
    const auto text = [&](std::wstring first, std::wstring_view more) {
        for (auto length = random() % 6; length > 0; --length) {
            const auto which = random() % (alphabet.size() + more.size());
            first += which < alphabet.size() ? alphabet[which] : more[which - alphabet.size()];
        }
        return first;
    };
    for (int round = 0; round < 2000; ++round) {
        Task task;
        task.m_strProjectPath = text(L"C:", L",'");
        const auto fill = [&](std::int32_t& flag, std::initializer_list<std::wstring*> arguments,
                              std::wstring_view last) {
            flag = static_cast<std::int32_t>(random() % 2);
            for (std::wstring* argument : arguments) {
                // Fields of the comma list are trimmed and know quotes at their ends.
                *argument = flag != 0 ? text(L"x", last) + L'x' : L"";
            }
        };
        for (const auto flag : kFlags) {
            task.*flag = static_cast<std::int32_t>(random() % 2);
        }
        fill(task.m_bAddUrls, {&task.m_strUrlsFile}, L",'");
        fill(task.m_bGenerateUrls, {&task.m_strScriptFile}, L",'");
        fill(task.m_bImportInputValues,
             {&task.m_strInputElementId, &task.m_strInputElementName, &task.m_strInputValuesFile}, L"'");
        fill(task.m_bApplyFilter, {&task.m_strFilterArgument}, L",'");
        fill(task.m_bExportResults, {&task.m_strExportFile}, L",'");
        fill(task.m_bExportFailedUrls, {&task.m_strFailedUrlsFile}, L",'");

        Task read;
        read.ParseCommandLine(task.BuildCommandLine());
        ExpectSameCommands(task, read);
        if (HasFailure()) {
            FAIL() << testing::PrintToString(task.BuildCommandLine());
        }
    }
}

}  // namespace
