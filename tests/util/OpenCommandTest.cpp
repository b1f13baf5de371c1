#include "util/OpenCommand.h"

#include <gtest/gtest.h>

TEST(OpenCommand, IsReducedToItsProgram) {
    const auto environment = [](const std::wstring& name) -> std::wstring {
        return name == L"APPS" ? L"C:\\Program Files" : name == L"GROWS" ? L"%GROWS%%GROWS%" : L"";
    };
    const std::tuple<const char*, const wchar_t*, const wchar_t*> cases[] = {
        {"quoted", LR"("C:\my apps\x.exe   " "%1")", LR"(C:\my apps\x.exe)"},
        {"unquoted", LR"(C:\my apps\x.exe)", LR"(C:\my)"},
        {"no end quote", LR"("C:\never closed)", LR"(C:\never closed)"},
        {"variable", LR"("%APPS%\x.exe" "%1")", LR"(C:\Program Files\x.exe)"},
        {"variables without a value", LR"("a%NOTHING%b%%c%d")", L"abc%d"},
    };
    for (const auto& [label, command, program] : cases) {
        EXPECT_EQ(ProgramOfOpenCommand(command, environment), program) << label;
    }
    EXPECT_LT(ProgramOfOpenCommand(L"%GROWS%", environment).size(), 100'000U) << "and it ends";
}
