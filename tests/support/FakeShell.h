#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "core/platform/Shell.h"

// A shell that starts nothing: returns what the test has set and records every start.
class FakeShell final : public IShell {
public:
    struct Start {
        std::wstring program;
        std::wstring parameters;
        bool operator==(const Start&) const = default;
    };
    std::function<void()> whileOpening = [] {};

    [[nodiscard]] bool FileExists(const std::wstring& path) override { return !missing.contains(path); }
    [[nodiscard]] bool CanOpenForWriting(const std::wstring& path) override {
        return !held.contains(path) && !missing.contains(path);
    }
    [[nodiscard]] std::wstring RegisteredProgram(const std::wstring& key) override {
        return programs.contains(key) ? programs[key] : L"";
    }
    [[nodiscard]] std::wstring AssociatedProgram(const std::wstring& extension) override {
        return RegisteredProgram(extension);
    }
    [[nodiscard]] std::intptr_t Open(const std::wstring& program, const std::wstring& parameters) override {
        starts.push_back({program, parameters});
        whileOpening();
        return answer;
    }

    std::set<std::wstring> missing;  // paths; every other project exists
    std::set<std::wstring> held;     // paths that another program has open
    // By registry key or extension.
    std::map<std::wstring, std::wstring> programs{{L"Software\\Talvernick\\Scrivane", L"C:\\scrivane.exe"},
                                                  {L"Software\\Talvernick\\Ostrel", L"C:\\ostrel.exe"}};
    std::intptr_t answer = 33;  // what the shell returns; above 32 is success
    std::vector<Start> starts;
};
