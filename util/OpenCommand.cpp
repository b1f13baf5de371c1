#include "util/OpenCommand.h"

#include <string_view>

#include "util/WhiteSpace.h"

namespace {

constexpr auto kNowhere = std::wstring::npos;

void ReplaceAll(std::wstring& text, const std::wstring& what, const std::wstring& with) {
    for (std::size_t at = text.find(what); at != kNowhere; at = text.find(what, at + with.size())) {
        text.replace(at, what.size(), with);
    }
}

void ExpandVariables(std::wstring& command,
                     const std::function<std::wstring(const std::wstring& name)>& environment) {
    // Limits, because a value may contain its own variable. No real command reaches them.
    constexpr int kTurns = 100;
    constexpr std::size_t kLongest = 32767;
    for (int turn = 0; turn < kTurns && command.size() <= kLongest; ++turn) {
        const std::size_t first = command.find(L'%');
        const std::size_t second = first == kNowhere ? kNowhere : command.find(L'%', first + 1);
        if (second == kNowhere) {
            return;
        }
        const std::wstring token = command.substr(first, second - first + 1);
        ReplaceAll(command, token, environment(token.substr(1, token.size() - 2)));
    }
}

}  // namespace

std::wstring ProgramOfOpenCommand(std::wstring command,
                                  const std::function<std::wstring(const std::wstring& name)>& environment) {
    const std::size_t quote = command.find(L'"');
    const std::size_t end = quote == kNowhere ? command.find(L' ') : command.find(L'"', quote + 1);
    if (end != kNowhere) {
        command.resize(end + 1);
    }
    ExpandVariables(command, environment);
    std::wstring_view program = command;
    if (program.starts_with(L'"')) {
        program.remove_prefix(1);
        program = program.substr(0, program.find(L'"'));
    } else {
        program = program.substr(0, program.find(L' '));
    }
    return std::wstring(TrimRight(program));
}
