#pragma once

#include "core/FileSystem.h"

// The files of the machine that the native tests and benchmarks run on. Paths are UTF-16, the system's are
// UTF-8.
class CPosixFileSystem final : public IFileSystem {
public:
    [[nodiscard]] bool IsReadOnly(const std::wstring& path) override;
    [[nodiscard]] Status Read(const std::wstring& path, std::string& bytes) override;
    [[nodiscard]] Status CreateLock(const std::wstring& path, std::unique_ptr<IFile>& file) override;
    [[nodiscard]] Status Create(const std::wstring& path, std::unique_ptr<IFile>& file) override;
    [[nodiscard]] Status Replace(const std::wstring& from, const std::wstring& to) override;
    void Remove(const std::wstring& path) override;
    void Pause(unsigned milliseconds) override;
};
