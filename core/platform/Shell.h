#pragma once

#include <cstdint>
#include <string>

// The system calls for launching a project: files, the user's registry and the shell. Paths are full Windows
// paths.
class IShell {
public:
    IShell() = default;
    IShell(const IShell&) = delete;
    IShell& operator=(const IShell&) = delete;
    virtual ~IShell() = default;

    // True for a file or a folder; wildcards match.
    [[nodiscard]] virtual bool FileExists(const std::wstring& path) = 0;
    // False while a program has the file open, and when the file is missing or read-only.
    [[nodiscard]] virtual bool CanOpenForWriting(const std::wstring& path) = 0;
    // The "ProgramFileName" value below `key` of the current user; empty when it cannot be read.
    [[nodiscard]] virtual std::wstring RegisteredProgram(const std::wstring& key) = 0;
    // The program that the system associates with an extension (without its dot); empty when there is none.
    [[nodiscard]] virtual std::wstring AssociatedProgram(const std::wstring& extension) = 0;
    // Starts the program with the shell's "open" verb and does not wait for it. A result above 32 is success.
    [[nodiscard]] virtual std::intptr_t Open(const std::wstring& program, const std::wstring& parameters) = 0;
};

// The system's own (Windows only).
class CWindowsShell final : public IShell {
public:
    [[nodiscard]] bool FileExists(const std::wstring& path) override;
    [[nodiscard]] bool CanOpenForWriting(const std::wstring& path) override;
    [[nodiscard]] std::wstring RegisteredProgram(const std::wstring& key) override;
    [[nodiscard]] std::wstring AssociatedProgram(const std::wstring& extension) override;
    [[nodiscard]] std::intptr_t Open(const std::wstring& program, const std::wstring& parameters) override;
};
