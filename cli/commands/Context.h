#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <ostream>
#include <string>
#include <vector>

#include "cli/options/Arguments.h"
#include "cli/report/Text.h"
#include "core/platform/FileSystem.h"
#include "core/platform/Platform.h"

class CLaunchClaim;
class CSCVShchedulerTaskArray;

// Starts the user's command for a launch that failed.
class IFailureCommand {
public:
    IFailureCommand() = default;
    IFailureCommand(const IFailureCommand&) = delete;
    IFailureCommand& operator=(const IFailureCommand&) = delete;
    virtual ~IFailureCommand() = default;

    // Starts the command line through the command interpreter and does not wait for it. The environment
    // variables SCV_PROJECT and SCV_RESULT have the texts. Returns why it could not be started, empty when it
    // was.
    [[nodiscard]] virtual std::wstring Start(const std::wstring& command, const std::wstring& project,
                                             const std::wstring& result) = 0;
    // The exit codes other than 0 of the commands that have ended since the last call.
    [[nodiscard]] virtual std::vector<std::uint32_t> TakeFailures() = 0;
};

// The environment of a subcommand. Owns nothing.
struct Context {
    CPlatform platform;
    std::wstring list;  // full path of the task list file
    std::istream& in;   // unconverted bytes
    std::ostream& out;  // UTF-8
    std::ostream& err;
    std::size_t width;  // columns of the terminal
    // Creates the folder of the list and moves a list of an earlier version there, unless there is a list.
    std::function<void()> settleList;
    // The files (no folders) that match a pattern with * and ? in the name, as full paths sorted by name.
    std::function<std::vector<std::wstring>(const std::wstring& pattern)> findFiles;
    IFailureCommand& failureCommand;
    // Waits. True as soon as the user wants to end, false after `ms` milliseconds.
    std::function<bool(unsigned ms)> waitForStop;

    // The reason of a failed file call, as the system's text with the path.
    [[nodiscard]] std::wstring Reason(const FileResult& result) const {
        return DescribeFailure(platform.files, result);
    }
    // Writes an error as one line to `err` and flushes it. The parts are UTF-8 or UTF-16.
    template <typename... Parts>
    void Complain(const Parts&... parts) const {
        err << Join("scvsched: ", parts...) << std::endl;
    }
    // As Complain, for a warning: the subcommand continues.
    template <typename... Parts>
    void Warn(const Parts&... parts) const {
        Complain("warning: ", parts...);
    }
};

// The argument of a subcommand's handler, which is called once the claim is taken and the list is loaded.
struct Job {
    const Arguments& arguments;
    const Context& context;
    CSCVShchedulerTaskArray& tasks;
    CLaunchClaim& claim;       // of the list; taken for Claim::List
    std::int64_t now;          // --at, or the time of the call
    const std::string& input;  // the text for import; empty for other subcommands
};
