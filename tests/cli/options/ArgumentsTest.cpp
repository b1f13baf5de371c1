#include "cli/options/Arguments.h"

#include <gmock/gmock.h>

#include "cli/report/Refusal.h"
#include "tests/cli/ConsoleRun.h"

namespace {

ParsedCommandLine Parse(const std::vector<std::string>& words) {
    return ParseArguments(Subcommands(), words, [](const std::wstring& path) { return L"F:\\" + path; });
}

TEST(Arguments, OptionsMayFollowPaths) {
    const ParsedCommandLine next = Parse({"--list", "\xC3\xA4.ini", "next", "--at", "1711850400", "--count",
                                          "3", "a b.scvpr", "/c.scvpr", "--json"});
    ASSERT_TRUE(next.arguments) << next.message;
    EXPECT_STREQ(next.arguments->subcommand->name, "next");
    EXPECT_EQ(next.arguments->list, L"F:\\\u00e4.ini");
    EXPECT_EQ(next.arguments->at, 1711850400);
    EXPECT_EQ(next.arguments->count, 3);
    EXPECT_EQ(next.arguments->paths, (std::vector<std::wstring>{L"F:\\a b.scvpr", L"F:\\/c.scvpr"}));
    EXPECT_TRUE(next.arguments->json);
}

TEST(Arguments, ErrorsAreOneLine) {
    const std::pair<const char*, const char*> wrong[] = {
        {"--json", "a command is missing"},
        {"list --extra", "'--extra' is not understood; scvsched list --help"},
        {"--list  list", "--list needs the name of a file"},
        {"list --json --csv", "--json and --csv exclude"},
        {"next --week --count 3", "--week shows seven days"},
        {"next --from 2026-03-02 --to 2026-03-01", "--to lies before --from"},
        {"next --count x", "--count: 'x' is no whole number"},
        {"add a.scvpr --start 2026-03-02 --start 2026-03-03", "--start is given twice"},
        {"next --at 2024-02-30T10:00", "--at: '2024-02-30T10:00'"},
        {"add", "the path of a project is missing"},
        {"add a.scvpr --start 2038-01-20T00:00", "2038-01-19"},
        {"add a.scvpr --days mon,fun", "--days: 'mon,fun'"},
        {"add a.scvpr --every 0m", "--every: '0m'"},
        {"add a.scvpr --every 9999999999h", "--every: '9999999999h'"},
        {"add a.scvpr --every 2h --until 24:00", "--until: '24:00'"},
        {"add a.scvpr --add-urls ", "--add-urls: a file is missing"},
        {"set a.scvpr", "set needs at least one change"},
        {"set a.scvpr --exit --no-exit", "--exit and --no-exit exclude"},
        {"set a.scvpr --no-export-results --export-file f", "export-results"},
    };
    for (const auto& [line, message] : wrong) {
        const ParsedCommandLine parsed = Parse(Words(line));
        EXPECT_FALSE(parsed.arguments) << line;
        EXPECT_EQ(parsed.exitCode, kUsage) << line;
        EXPECT_THAT(parsed.message, testing::HasSubstr(message)) << line;
        EXPECT_EQ(parsed.message.find('\n'), std::string::npos) << parsed.message;
    }
}

TEST(Arguments, HelpHasItsNamesOnWindowsToo) {
    const std::string help = Parse({"--help"}).message;
    EXPECT_THAT(help, testing::HasSubstr("watch"));
    EXPECT_EQ(Parse({"/?"}).message, help);
    EXPECT_EQ(Parse({"help"}).message, help);
    EXPECT_EQ(Parse({"help", "add"}).message, Parse({"add", "/?"}).message);
}

TEST(Arguments, HelpShowsAnExampleThatParses) {
    for (const char* command : {"list", "next", "check", "pass", "watch", "add", "set", "enable", "disable",
                                "remove", "run", "export", "import"}) {
        const std::string help = Parse({command, "--help"}).message;
        const std::string example = "Example:\n  scvsched ";
        const std::size_t at = help.find(example + command);
        ASSERT_NE(at, std::string::npos) << help;
        std::string line = help.substr(at + example.size());
        line.erase(line.find_last_not_of('\n') + 1);
        EXPECT_TRUE(Parse(Words(line)).arguments) << line << Parse(Words(line)).message;
    }
}

}  // namespace
