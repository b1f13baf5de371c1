#pragma once

#include <cstdint>

#include "core/platform/FileSystem.h"

// The machine's files (Windows only). Relative paths are taken from the current folder; paths may be longer
// than MAX_PATH.
class CWindowsFileSystem final : public IFileSystem {
public:
    // Whether callers may wait for a busy file (see Pause). A thread with a window may not.
    enum class Waiting { Allowed, Never };

    explicit CWindowsFileSystem(Waiting waiting = Waiting::Allowed) noexcept : m_waiting(waiting) {}

    // For a file larger than this, in bytes, Read returns Failed.
    static constexpr std::uint64_t kLargestFile = std::uint64_t{256} << 20;

    [[nodiscard]] bool Exists(const std::wstring& path) override;
    [[nodiscard]] bool IsReadOnly(const std::wstring& path) override;
    [[nodiscard]] FileResult ResolveLink(const std::wstring& path, std::wstring& target) override;
    [[nodiscard]] std::optional<FileStamp> Stamp(const std::wstring& path) override;
    [[nodiscard]] FileResult Read(const std::wstring& path, std::string& bytes) override;
    [[nodiscard]] FileResult CreateLock(const std::wstring& path, std::unique_ptr<IFile>& file) override;
    [[nodiscard]] FileResult Create(const std::wstring& path, std::unique_ptr<IFile>& file) override;
    void CreateFolder(const std::wstring& folder) override;
    [[nodiscard]] FileResult Replace(const std::wstring& from, const std::wstring& to) override;
    void Remove(const std::wstring& path) override;
    [[nodiscard]] bool Pause(unsigned milliseconds) override;
    [[nodiscard]] std::wstring ErrorText(std::uint32_t error) override;

private:
    Waiting m_waiting;
};
