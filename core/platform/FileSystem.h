#pragma once

#include <memory>
#include <string>
#include <string_view>

// The file calls that reading and replacing a task list file makes, one virtual function a call, so that a
// test can fail each of them in turn. Paths are full Windows paths. No function raises for a failure of the
// system, and none waits: whoever calls decides how often a busy file is tried again.
class IFileSystem {
public:
    enum class Status {
        Ok,
        Missing,  // there is surely nothing of that name
        Busy,     // somebody else has it; another try may succeed
        Failed,   // there or not, it cannot be had
    };

    // An open file; closed on destruction at the latest.
    class IFile {
    public:
        IFile() = default;
        IFile(const IFile&) = delete;
        IFile& operator=(const IFile&) = delete;
        virtual ~IFile() = default;

        // Appends all bytes. False leaves an unknown part written.
        [[nodiscard]] virtual bool Write(std::string_view bytes) = 0;
        // True once the bytes are on the medium, not only with the system.
        [[nodiscard]] virtual bool Flush() = 0;
        [[nodiscard]] virtual bool Close() = 0;
    };

    IFileSystem() = default;
    IFileSystem(const IFileSystem&) = delete;
    IFileSystem& operator=(const IFileSystem&) = delete;
    virtual ~IFileSystem() = default;

    // True when the file may not be changed (its read-only attribute).
    [[nodiscard]] virtual bool IsReadOnly(const std::wstring& path) = 0;
    // The whole file. A folder or a file too large to be taken into memory is Failed.
    [[nodiscard]] virtual Status Read(const std::wstring& path, std::string& bytes) = 0;
    // A file that only its holder may have open, created when missing and free again once closed, also when
    // the process is killed. Sets `file` when Ok.
    [[nodiscard]] virtual Status CreateLock(const std::wstring& path, std::unique_ptr<IFile>& file) = 0;
    // An empty file for writing, whatever stood there before. Sets `file` when Ok.
    [[nodiscard]] virtual Status Create(const std::wstring& path, std::unique_ptr<IFile>& file) = 0;
    // Puts `from` into the place of `to` in one step and through to the medium.
    [[nodiscard]] virtual Status Replace(const std::wstring& from, const std::wstring& to) = 0;
    virtual void Remove(const std::wstring& path) = 0;
    // Waits before another try.
    virtual void Pause(unsigned milliseconds) = 0;
};
