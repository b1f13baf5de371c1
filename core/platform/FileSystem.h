#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

// What came of a file call: what the caller can do about it, and what the system said. True when it is Ok.
struct FileResult {
    enum class Status {
        Ok,
        Missing,   // there is surely nothing of that name
        Busy,      // somebody else has it; another try may succeed
        ReadOnly,  // it may not be changed
        Failed,    // there or not, it cannot be had
    };

    Status status = Status::Ok;
    std::uint32_t error = 0;  // the system's code, on Windows that of GetLastError; 0 when it gave none
    std::wstring path = {};   // of the file that the failure is about

    [[nodiscard]] explicit operator bool() const noexcept { return status == Status::Ok; }
    [[nodiscard]] bool operator==(Status other) const noexcept { return status == other; }
};

// Identifies what a file holds: it differs once another program has replaced or written the file.
struct FileStamp {
    std::uint64_t file = 0;      // the system's number of the file
    std::uint64_t size = 0;      // bytes
    std::uint64_t modified = 0;  // in the system's units

    [[nodiscard]] bool operator==(const FileStamp&) const = default;
};

// The file calls that a task list needs, one virtual function a call, so that a test can fail each of them in
// turn. Paths are full Windows paths. No function throws for a failure of the system, and none but Pause
// waits: whoever calls decides how often a busy file is tried again.
class IFileSystem {
public:
    using Status = FileResult::Status;

    // An open file; closed on destruction at the latest.
    class IFile {
    public:
        IFile() = default;
        IFile(const IFile&) = delete;
        IFile& operator=(const IFile&) = delete;
        virtual ~IFile() = default;

        // Appends all bytes. A failure leaves an unknown part written.
        [[nodiscard]] virtual FileResult Write(std::string_view bytes) = 0;
        // Ok once the bytes are on the medium, not only with the system.
        [[nodiscard]] virtual FileResult Flush() = 0;
        [[nodiscard]] virtual FileResult Close() = 0;
    };

    IFileSystem() = default;
    IFileSystem(const IFileSystem&) = delete;
    IFileSystem& operator=(const IFileSystem&) = delete;
    virtual ~IFileSystem() = default;

    // True for a file or a folder; wildcards match.
    [[nodiscard]] virtual bool Exists(const std::wstring& path) = 0;
    // True when the file may not be changed (its read-only attribute).
    [[nodiscard]] virtual bool IsReadOnly(const std::wstring& path) = 0;
    // Can be had of a file that another program holds, too; nothing when there is no such file.
    [[nodiscard]] virtual std::optional<FileStamp> Stamp(const std::wstring& path) = 0;
    // The whole file. A folder or a file too large to be taken into memory is Failed.
    [[nodiscard]] virtual FileResult Read(const std::wstring& path, std::string& bytes) = 0;
    // A file that only its holder may have open, created when missing and free again once closed, also when
    // the process is killed. Sets `file` when Ok.
    [[nodiscard]] virtual FileResult CreateLock(const std::wstring& path, std::unique_ptr<IFile>& file) = 0;
    // An empty file for writing, whatever stood there before. Sets `file` when Ok.
    [[nodiscard]] virtual FileResult Create(const std::wstring& path, std::unique_ptr<IFile>& file) = 0;
    // One level only; nothing is reported.
    virtual void CreateFolder(const std::wstring& folder) = 0;
    // Puts `from` into the place of `to` in one step and through to the medium.
    [[nodiscard]] virtual FileResult Replace(const std::wstring& from, const std::wstring& to) = 0;
    virtual void Remove(const std::wstring& path) = 0;
    // Waits before another try; false, at once, when the caller's thread may not wait, so that there is no
    // other try.
    [[nodiscard]] virtual bool Pause(unsigned milliseconds) = 0;
    // What the system's error code means, in the user's language, without a full stop.
    [[nodiscard]] virtual std::wstring ErrorText(std::uint32_t error) = 0;
};

// For the user: "Access is denied: C:\lists\tasks.ini". `result` is not Ok.
[[nodiscard]] std::wstring DescribeFailure(IFileSystem& files, const FileResult& result);
