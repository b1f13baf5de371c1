#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "cli/commands/Subcommands.h"
#include "cli/options/Arguments.h"
#include "cli/report/Refusal.h"
#include "core/platform/LocalTime.h"
#include "tests/support/FakeClock.h"
#include "tests/support/FakeFileSystem.h"
#include "tests/support/FakeShell.h"

// The words of a command line that holds no quotes: the texts between single blanks, also empty ones.
inline std::vector<std::string> Words(const std::string& line) {
    std::vector<std::string> words(1);
    for (const char c : line) {
        if (c == ' ') {
            words.emplace_back();
        } else {
            words.back() += c;
        }
    }
    return words;
}

// Starts nothing and records what it was to start.
class CFakeFailureCommand final : public IFailureCommand {
public:
    [[nodiscard]] std::wstring Start(const std::wstring& command, const std::wstring& project,
                                     const std::wstring& result) override {
        starts.push_back(command + L"|" + project + L"|" + result);
        return refusal;
    }
    [[nodiscard]] std::vector<std::uint32_t> TakeFailures() override { return std::exchange(failures, {}); }

    std::vector<std::wstring> starts;
    std::wstring refusal;  // why it cannot be started
    std::vector<std::uint32_t> failures;
};

// The console program in memory: words in, texts and a list file out. The list is C:\l.ini, relative paths
// lie below C:\w.
class ConsoleRun : public testing::Test {
protected:
    static std::wstring FullPath(const std::wstring& path) {
        return path.find(L':') == std::wstring::npos ? L"C:\\w\\" + path : path;
    }

    // The exit code; the texts are in `out` and `err` then.
    int Run(const std::string& line) {
        out.str("");
        err.str("");
        const ParsedCommandLine parsed =
            ParseArguments(Subcommands(), Words("--list C:\\l.ini " + line), FullPath);
        if (!parsed.arguments) {
            (parsed.exitCode == 0 ? out : err) << parsed.message;
            return parsed.exitCode;
        }
        return RunSubcommand(*parsed.arguments, context);
    }

    // Another program has a lock file of the list, such as ".window", until the result is destroyed.
    [[nodiscard]] std::unique_ptr<IFileSystem::IFile> Lock(const std::wstring& ending) {
        std::unique_ptr<IFileSystem::IFile> lock;
        EXPECT_TRUE(files.CreateLock(kList + ending, lock));
        return lock;
    }

    const std::wstring kList = L"C:\\l.ini";
    FakeClock clock{FromLocalTime(2024, 6, 3, 10, 0, 0)};  // a Monday
    CFakeFileSystem files;
    FakeShell shell;
    const CPlatform platform{clock, files, shell};
    std::istringstream in;
    std::ostringstream out, err;
    int settled = 0;                                          // how often the list was moved to its place
    std::map<std::wstring, std::vector<std::wstring>> found;  // what patterns of files match
    CFakeFailureCommand failureCommand;
    int ticks = 1;
    std::function<void()> onTick = [] {};
    const Context context{.platform = platform,
                          .list = kList,
                          .in = in,
                          .out = out,
                          .err = err,
                          .width = 80,
                          .settleList = [this] { ++settled; },
                          .findFiles = [this](const std::wstring& pattern) { return found[pattern]; },
                          .failureCommand = failureCommand,
                          .waitForStop =
                              [this](unsigned milliseconds) {
                                  EXPECT_EQ(milliseconds, 2000U);
                                  clock.now += 2;
                                  onTick();
                                  return --ticks == 0;
                              }};
};
