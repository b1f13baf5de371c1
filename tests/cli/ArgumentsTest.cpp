#include "cli/Arguments.h"

#include <gtest/gtest.h>

#include "cli/ExitCode.h"

namespace {

TEST(Arguments, EachCommandTakesItsOptionsBeforeOrAfterItsName) {
    const ParsedCommandLine next = ParseArguments({"--list", "C:\\\xC3\xA4.ini", "next", "--at", "1711850400",
                                                   "--count", "3", "C:\\a b.scvpr", "c.scvpr", "--json"});
    ASSERT_TRUE(next.arguments) << next.message;
    EXPECT_EQ(next.arguments->command, Command::Next);
    EXPECT_EQ(next.arguments->list, L"C:\\\u00e4.ini");
    EXPECT_EQ(next.arguments->at, 1711850400);
    EXPECT_EQ(next.arguments->count, 3);
    EXPECT_EQ(next.arguments->paths, (std::vector<std::wstring>{L"C:\\a b.scvpr", L"c.scvpr"}));
    EXPECT_TRUE(next.arguments->json);

    const std::pair<const char*, Command> commands[] = {{"list", Command::List},
                                                        {"check", Command::Check},
                                                        {"pass", Command::Pass},
                                                        {"watch", Command::Watch}};
    for (const auto& [name, command] : commands) {
        const ParsedCommandLine parsed = ParseArguments({name});
        ASSERT_TRUE(parsed.arguments) << name << ": " << parsed.message;
        EXPECT_EQ(parsed.arguments->command, command) << name;
        EXPECT_FALSE(parsed.arguments->at.has_value());
    }
}

TEST(Arguments, WhatIsWrongIsToldInOneLine) {
    const std::vector<std::string> wrong[] = {
        {},
        {"lost"},
        {"list", "extra"},
        {"list", "--at", "0"},
        {"next", "--at", "yesterday"},
        {"next", "--at", "2024-02-30T10:00"},
        {"next", "--count", "0"},
        {"next", "--count", "many"},
        {"next", "--list"},
        {"pass", "--json"},
        {"watch", "--json"},
    };
    for (const auto& words : wrong) {
        const ParsedCommandLine parsed = ParseArguments(words);
        EXPECT_FALSE(parsed.arguments) << testing::PrintToString(words);
        EXPECT_EQ(parsed.exitCode, kUsage) << testing::PrintToString(words);
        EXPECT_FALSE(parsed.message.empty());
        EXPECT_EQ(parsed.message.find('\n'), std::string::npos) << parsed.message;
    }
}

TEST(Arguments, HelpEndsWellAndNamesTheCommandsOptions) {
    const ParsedCommandLine help = ParseArguments({"next", "--help"});
    EXPECT_FALSE(help.arguments);
    EXPECT_EQ(help.exitCode, kFine);
    EXPECT_NE(help.message.find("--count"), std::string::npos) << help.message;
}

}  // namespace
