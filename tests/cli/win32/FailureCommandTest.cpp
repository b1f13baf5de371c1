#include "cli/win32/FailureCommand.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/support/TemporaryFolder.h"

namespace {

// Waits for the one command that has been started and returns its exit code.
std::uint32_t CodeOf(CFailureCommand& command) {
    std::vector<std::uint32_t> failures;
    while (failures.empty()) {
        failures = command.TakeFailures();
    }
    EXPECT_EQ(failures.size(), 1U);
    EXPECT_TRUE(command.TakeFailures().empty()) << "each code once";
    return failures.front();
}

TEST(FailureCommand, RunsWithProjectAndResult) {
    const TemporaryFolder folder;
    const std::wstring record = folder.Path(L"a b.txt");
    const std::wstring script =
        folder.File(L"keep it.cmd", "@echo %SCV_PROJECT%: %SCV_RESULT%: %~2>%1\r\n@exit 7\r\n");
    CFailureCommand command;
    EXPECT_EQ(command.Start(L"\"" + script + L"\" \"" + record + L"\" \"c d\"", L"C:\\p q\\a.scvpr",
                            L"Failure: no"),
              L"");
    EXPECT_EQ(CodeOf(command), 7U);
    std::ifstream file{std::filesystem::path(record)};
    const std::string text(std::istreambuf_iterator<char>(file), {});
    EXPECT_EQ(text, "C:\\p q\\a.scvpr: Failure: no: c d\n");
    EXPECT_EQ(command.Start(folder.Path(L"none.cmd"), L"", L""), L"") << "the interpreter itself starts";
    EXPECT_NE(CodeOf(command), 0U);
}

}  // namespace
