#pragma once

#include <cstdint>

#include "core/platform/FileSystem.h"

// The machine's files (Windows only). Relative paths are taken from the current folder; paths may be longer
// than MAX_PATH.
class CWindowsFileSystem final : public IFileSystem {
public:
    // A file larger than this many bytes is Failed to Read.
    static constexpr std::uint64_t kLargestFile = std::uint64_t{256} << 20;

    [[nodiscard]] bool IsReadOnly(const std::wstring& path) override;
    [[nodiscard]] Status Read(const std::wstring& path, std::string& bytes) override;
    [[nodiscard]] Status CreateLock(const std::wstring& path, std::unique_ptr<IFile>& file) override;
    [[nodiscard]] Status Create(const std::wstring& path, std::unique_ptr<IFile>& file) override;
    [[nodiscard]] Status Replace(const std::wstring& from, const std::wstring& to) override;
    void Remove(const std::wstring& path) override;
    void Pause(unsigned milliseconds) override;
};
