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

    // Starts the command line through the command interpreter, with the texts in the environment variables
    // SCV_PROJECT and SCV_RESULT, and does not wait for it. Returns why it could not be started, else an
    // empty text.
    [[nodiscard]] virtual std::wstring Start(const std::wstring& command, const std::wstring& project,
                                             const std::wstring& result) = 0;
    // The exit codes, but for 0, of the commands that have ended since the last call.
    [[nodiscard]] virtual std::vector<std::uint32_t> TakeFailures() = 0;
};

// What a subcommand works with. Owns nothing.
struct Context {
    CPlatform platform;
    std::wstring list;  // full path of the task list file
    std::istream& in;   // bytes as they come
    std::ostream& out;  // UTF-8
    std::ostream& err;
    std::size_t width;  // columns of the terminal
    // Makes the folder of the list and moves a list of an earlier version to where the list is, unless there
    // is one.
    std::function<void()> settleList;
    // The files, not folders, that match a pattern (* and ? in the name) as full paths, in the order of their
    // names.
    std::function<std::vector<std::wstring>(const std::wstring& pattern)> findFiles;
    IFailureCommand& failureCommand;
    // True as soon as the user wants to end, false after the time.
    std::function<bool(unsigned ms)> waitForStop;

    // Why a file call failed, in the system's words, with the path.
    [[nodiscard]] std::wstring Reason(const FileResult& result) const {
        return DescribeFailure(platform.files, result);
    }
    // One line on `err`, at once. The parts are UTF-8 or UTF-16.
    template <typename... Parts>
    void Complain(const Parts&... parts) const {
        err << Join("scvsched: ", parts...) << std::endl;
    }
    // As Complain, for what does not keep the subcommand from its work.
    template <typename... Parts>
    void Warn(const Parts&... parts) const {
        Complain("warning: ", parts...);
    }
};

// What the handler of a subcommand gets, once the subcommand's claim is made and the list is loaded.
struct Job {
    const Arguments& arguments;
    const Context& context;
    CSCVShchedulerTaskArray& tasks;
    CLaunchClaim& claim;       // of the list; taken for Claim::List
    std::int64_t now;          // --at, or the time of the call
    const std::string& input;  // what import reads, else empty
};
