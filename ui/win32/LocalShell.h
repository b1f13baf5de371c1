#pragma once

#include "core/platform/Shell.h"
#include "util/win32/FileTests.h"

// A shell for text that the window shows without being asked, such as tooltips. It reports files on other
// machines as present without accessing them: a machine that does not answer would block the window's thread
// for seconds.
class CLocalShell final : public IShell {
public:
    // `shell` outlives the object.
    explicit CLocalShell(IShell& shell) noexcept : m_shell(shell) {}

    [[nodiscard]] bool FileExists(const std::wstring& path) override {
        return IsRemotePath(path) || m_shell.FileExists(path);
    }
    [[nodiscard]] bool CanOpenForWriting(const std::wstring& path) override {
        return IsRemotePath(path) || m_shell.CanOpenForWriting(path);
    }
    [[nodiscard]] std::wstring RegisteredProgram(const std::wstring& key) override {
        return m_shell.RegisteredProgram(key);
    }
    [[nodiscard]] std::wstring AssociatedProgram(const std::wstring& extension) override {
        return m_shell.AssociatedProgram(extension);
    }
    [[nodiscard]] std::intptr_t Open(const std::wstring& program, const std::wstring& parameters) override {
        return m_shell.Open(program, parameters);
    }

private:
    IShell& m_shell;
};
