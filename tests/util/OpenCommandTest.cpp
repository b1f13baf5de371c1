#include "util/OpenCommand.h"

#include <gtest/gtest.h>

TEST(OpenCommand, IsReducedToItsProgram) {
    const auto environment = [](const std::wstring& name) -> std::wstring {
        return name == L"APPS" ? L"C:\\Program Files" : name == L"GROWS" ? L"%GROWS%%GROWS%" : L"";
    };
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {LR"("C:\my apps\x.exe   " "%1")", LR"(C:\my apps\x.exe)"},
        {LR"(C:\my apps\x.exe)", LR"(C:\my)"},
        {LR"("C:\never closed)", LR"(C:\never closed)"},
        {LR"("%APPS%\x.exe" "%1")", LR"(C:\Program Files\x.exe)"},
        {LR"("a%NOTHING%b%%c%d")", L"abc%d"},
    };
    for (const auto& [command, program] : cases) {
        EXPECT_EQ(ProgramOfOpenCommand(command, environment), program) << testing::PrintToString(command);
    }
    EXPECT_LT(ProgramOfOpenCommand(L"%GROWS%", environment).size(), 100'000U) << "and it ends";
}
