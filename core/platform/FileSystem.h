#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

// The result of a file call: a status that the caller can act on, and the system's error code. True for Ok.
struct FileResult {
    enum class Status {
        Ok,
        Missing,   // no file has that name
        Busy,      // another program has it open; another try may succeed
        ReadOnly,  // its read-only attribute is set
        Failed,    // any other failure, whether or not there is a file
    };

    Status status = Status::Ok;
    std::uint32_t error = 0;  // on Windows what GetLastError returned; 0 when there was no code
    std::wstring path = {};   // the file that could not be used

    [[nodiscard]] explicit operator bool() const noexcept { return status == Status::Ok; }
    [[nodiscard]] bool operator==(Status other) const noexcept { return status == other; }
};

// Identifies the contents of a file: another stamp means that the file was replaced or written.
struct FileStamp {
    std::uint64_t file = 0;      // the system's number of the file
    std::uint64_t size = 0;      // bytes
    std::uint64_t modified = 0;  // in the system's units

    [[nodiscard]] bool operator==(const FileStamp&) const = default;
};

// The file calls that a task list needs. Each call is one virtual function, so that a test can make each of
// them fail in turn. Paths are full Windows paths. No function throws for a failure of the system. Only Pause
// waits; the caller decides how often a busy file is tried again.
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

        // Appends all bytes. After a failure part of them may have been written.
        [[nodiscard]] virtual FileResult Write(std::string_view bytes) = 0;
        // Ok once the bytes are on the disk, not only in the system's cache.
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
    // Sets `target` to the path of the file that `path` leads to when links are followed; to `path` itself
    // when there is no file. Replace does not follow links: it would put a file into the place of the link.
    // Failed for a link whose target is missing or cannot be reached.
    [[nodiscard]] virtual FileResult ResolveLink(const std::wstring& path, std::wstring& target) = 0;
    // The stamp of the file, even while another program has it open; nothing when there is no such file.
    [[nodiscard]] virtual std::optional<FileStamp> Stamp(const std::wstring& path) = 0;
    // Reads the whole file. Failed for a folder and for a file too large for the memory.
    [[nodiscard]] virtual FileResult Read(const std::wstring& path, std::string& bytes) = 0;
    // Opens a file without sharing it, and creates it when it is missing. The lock ends when the file is
    // closed or the process dies. Sets `file` when Ok.
    [[nodiscard]] virtual FileResult CreateLock(const std::wstring& path, std::unique_ptr<IFile>& file) = 0;
    // Creates an empty file, or empties an existing one, for writing. Sets `file` when Ok.
    [[nodiscard]] virtual FileResult Create(const std::wstring& path, std::unique_ptr<IFile>& file) = 0;
    // Creates one level only; a failure is not reported.
    virtual void CreateFolder(const std::wstring& folder) = 0;
    // Renames `from` to `to`, which it replaces atomically. Ok once the change is on the disk.
    [[nodiscard]] virtual FileResult Replace(const std::wstring& from, const std::wstring& to) = 0;
    virtual void Remove(const std::wstring& path) = 0;
    // Waits before another try. Returns false at once when the calling thread may not wait; the caller then
    // does not try again.
    [[nodiscard]] virtual bool Pause(unsigned milliseconds) = 0;
    // The system's text for an error code, in the user's language, without a full stop.
    [[nodiscard]] virtual std::wstring ErrorText(std::uint32_t error) = 0;
};

// For the user: "Access is denied: C:\lists\tasks.ini". `result` is not Ok.
[[nodiscard]] std::wstring DescribeFailure(IFileSystem& files, const FileResult& result);
