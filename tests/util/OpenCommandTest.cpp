#include "util/OpenCommand.h"

#include <gtest/gtest.h>

#include <map>

namespace {

std::wstring Environment(const std::wstring& name) {
    static const std::map<std::wstring, std::wstring> values{
        {L"ROOT", L"C:\\Windows"}, {L"APPS", L"C:\\Program Files"}, {L"NESTED", L"%ROOT%\\sub"},
        {L"SELF", L"%SELF%"},      {L"GROWS", L"%GROWS%%GROWS%"},   {L"ODD", L"100%"},
    };
    const auto value = values.find(name);
    return value == values.end() ? std::wstring() : value->second;
}

TEST(OpenCommand, IsReducedToItsProgram) {
    const struct {
        const wchar_t* command;
        const wchar_t* program;
    } cases[] = {
        {LR"("C:\my apps\x.exe" "%1")", LR"(C:\my apps\x.exe)"},
        {LR"(C:\apps\x.exe "%1")", LR"(C:\apps\x.exe)"},
        {LR"(C:\my apps\x.exe)", LR"(C:\my)"},
        {LR"("C:\x.exe   " %1)", LR"(C:\x.exe)"},
        {LR"("C:\never closed)", LR"(C:\never closed)"},
        {L"C:\\x.exe\t\r\n", LR"(C:\x.exe)"},
        {LR"("%APPS%\x.exe" "%1")", LR"(C:\Program Files\x.exe)"},
        {LR"(%APPS%\x.exe %1)", LR"(C:\Program)"},
        {LR"("%NESTED%%ROOT%%NESTED%")", LR"(C:\Windows\subC:\WindowsC:\Windows\sub)"},
        {LR"("a%NOTHING%b%%c")", L"abc"},
        {LR"("50%.exe" "%1")", L"50%.exe"},
        {LR"("%ODD%x")", L"100%x"},
        {LR"("%SELF%")", L"%SELF%"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(ProgramOfOpenCommand(each.command, Environment), each.program)
            << testing::PrintToString(each.command);
    }
    EXPECT_LT(ProgramOfOpenCommand(L"%GROWS%", Environment).size(), 100'000U) << "and it ends";
}

}  // namespace
