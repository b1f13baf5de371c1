#pragma once

#include <algorithm>
#include <limits>
#include <map>
#include <set>
#include <string>

#include "core/platform/FileSystem.h"

// Files in memory, for tests. Any call can be made to fail, and the power can be cut.
//
// Calls are counted from 1 in the order in which they are made: Exists, IsReadOnly, Read, CreateLock, Create,
// CreateFolder, Write, Flush, Close, Replace and Remove count; ResolveLink, Stamp, Pause and destructors do
// not. Paths compare exactly.
class CFakeFileSystem : public IFileSystem {
public:
    static constexpr int kForever = std::numeric_limits<int>::max();

    // A file's contents; throws std::out_of_range when there is no such file.
    [[nodiscard]] const std::string& Bytes(const std::wstring& path) const { return m_files.at(path).bytes; }
    [[nodiscard]] bool Has(const std::wstring& path) const { return m_files.contains(path); }
    [[nodiscard]] std::size_t FileCount() const { return m_files.size(); }
    [[nodiscard]] bool HasFolder(const std::wstring& path) const { return m_folders.contains(path); }
    // Makes a file whose contents survive a power cut.
    void Put(const std::wstring& path, const std::string& bytes) {
        m_files[path] = {bytes, bytes.size(), ++m_created};
    }
    // A symbolic link. Reading follows it, Replace and Remove are about the link itself.
    void PutLink(const std::wstring& link, const std::wstring& target) { m_links[link] = target; }
    [[nodiscard]] bool IsLink(const std::wstring& path) const { return m_links.contains(path); }
    void PutFolder(const std::wstring& path) { m_folders.insert(path); }
    void SetReadOnly(const std::wstring& path) { m_readOnly.insert(path); }

    // The next `tries` calls that open or replace this path find it busy.
    void Hold(const std::wstring& path, int tries) { m_held[path] = tries; }
    // From now on Pause refuses to wait, as the files of a window's thread do.
    void ForbidWaiting() { m_mayWait = false; }
    // A Write of more than so many bytes fails and leaves what fitted.
    void SetCapacity(std::size_t bytes) { m_capacity = bytes; }
    // Calls first to last fail without effect, a Write after half of its bytes.
    void FailCalls(int first, int last) {
        m_firstFailure = first;
        m_lastFailure = last;
    }
    // Cuts the power and restores it: every call works again, and unflushed contents are torn.
    void RestorePower() {
        FailCalls(kForever, kForever);
        for (auto& [path, file] : m_files) {
            const std::size_t torn = file.flushed + (file.bytes.size() - file.flushed) / 2;
            std::fill(file.bytes.begin() + static_cast<std::ptrdiff_t>(torn), file.bytes.end(), '\0');
        }
    }

    [[nodiscard]] int Calls() const { return m_calls; }
    [[nodiscard]] int Replacements() const { return m_replacements; }
    [[nodiscard]] unsigned PausedMilliseconds() const { return m_paused; }

    [[nodiscard]] bool Exists(const std::wstring& path) override { return Works() && Has(path); }
    [[nodiscard]] bool IsReadOnly(const std::wstring& path) override {
        return Works() && m_readOnly.contains(path);
    }
    [[nodiscard]] FileResult ResolveLink(const std::wstring& path, std::wstring& target) override {
        target = Followed(path);
        return Result(!IsLink(path) || Has(target) ? Status::Ok : Status::Failed, path);
    }
    [[nodiscard]] std::optional<FileStamp> Stamp(const std::wstring& path) override {
        const auto file = m_files.find(Followed(path));
        return file != m_files.end() ? std::optional(FileStamp{file->second.number}) : std::nullopt;
    }
    [[nodiscard]] FileResult Read(const std::wstring& given, std::string& bytes) override {
        const std::wstring path = Followed(given);
        const Status status = m_locks.contains(path) ? Status::Busy : Answer(path);
        // When opening fails the caller's bytes are unchanged; when reading fails they hold half of the file.
        if (status != Status::Busy && Has(path)) {
            bytes = Bytes(path).substr(0, status == Status::Ok ? std::string::npos : Bytes(path).size() / 2);
        }
        const bool isThere = Has(path) || m_locks.contains(path);
        return Result(isThere || status == Status::Failed ? status : Status::Missing, given);
    }
    [[nodiscard]] FileResult CreateLock(const std::wstring& path, std::unique_ptr<IFile>& file) override {
        const Status status = m_locks.contains(path) ? Status::Busy : Answer(path);
        if (status == Status::Ok) {
            m_locks.insert(path);
            file = std::make_unique<CFile>(*this, path);
        }
        return Result(status, path);
    }
    [[nodiscard]] FileResult Create(const std::wstring& path, std::unique_ptr<IFile>& file) override {
        const Status status = Answer(path);
        if (status == Status::Ok) {
            m_files[path] = {{}, 0, ++m_created};
            file = std::make_unique<CFile>(*this, path);
        }
        return Result(status, path);
    }
    void CreateFolder(const std::wstring& folder) override {
        if (Works()) {
            m_folders.insert(folder);
        }
    }
    [[nodiscard]] FileResult Replace(const std::wstring& from, const std::wstring& to) override {
        const Status status = Answer(to);
        if (status == Status::Ok) {
            m_files[to] = m_files.extract(from).mapped();
            m_readOnly.erase(to);
            m_links.erase(to);
            ++m_replacements;
        }
        return Result(status, to);
    }
    void Remove(const std::wstring& path) override {
        if (Works()) {
            m_files.erase(path);
        }
    }
    [[nodiscard]] bool Pause(unsigned milliseconds) override {
        m_paused += m_mayWait ? milliseconds : 0;
        return m_mayWait;
    }
    // The system's words for the code.
    [[nodiscard]] std::wstring ErrorText(std::uint32_t error) override {
        return error == kNotFound ? L"File not found"
               : error == kInUse  ? L"Sharing violation"
                                  : L"Access denied";
    }

private:
    struct File {
        std::string bytes;
        std::size_t flushed = 0;  // bytes that survive a power cut
        std::uint64_t number = 0;
    };
    class CFile final : public IFile {
    public:
        CFile(CFakeFileSystem& files, std::wstring path) : m_system(files), m_path(std::move(path)) {}
        ~CFile() override { m_system.m_locks.erase(m_path); }

        [[nodiscard]] FileResult Write(std::string_view bytes) override {
            const bool works = m_system.Works();
            const std::size_t fitting = std::min(bytes.size(), m_system.m_capacity);
            m_system.m_files[m_path].bytes += bytes.substr(0, works ? fitting : fitting / 2);
            return OpenResult(works && fitting == bytes.size());
        }
        [[nodiscard]] FileResult Flush() override {
            const bool works = m_system.Works();
            m_system.m_files[m_path].flushed = works ? m_system.Bytes(m_path).size() : 0;
            return OpenResult(works);
        }
        [[nodiscard]] FileResult Close() override { return OpenResult(m_system.Works()); }

    private:
        [[nodiscard]] FileResult OpenResult(bool works) const {
            return Result(works ? Status::Ok : Status::Failed, m_path);
        }

        CFakeFileSystem& m_system;
        std::wstring m_path;
    };

    static constexpr std::uint32_t kNotFound = 2, kDenied = 5, kInUse = 32;

    // The result with the system's code for it and, unless it is Ok, the path.
    static FileResult Result(Status status, const std::wstring& path) {
        switch (status) {
            case Status::Ok:
                return {};
            case Status::Missing:
                return {status, kNotFound, path};
            case Status::Busy:
                return {status, kInUse, path};
            default:
                return {status, kDenied, path};
        }
    }
    [[nodiscard]] std::wstring Followed(const std::wstring& path) const {
        const auto link = m_links.find(path);
        return link != m_links.end() ? link->second : path;
    }
    // Counts a call.
    bool Works() {
        ++m_calls;
        return m_calls < m_firstFailure || m_calls > m_lastFailure;
    }
    // Counts a call that opens or replaces the path.
    Status Answer(const std::wstring& path) {
        if (!Works() || m_folders.contains(path)) {
            return Status::Failed;
        }
        int& held = m_held[path];
        if (held == 0) {
            return Status::Ok;
        }
        --held;
        return Status::Busy;
    }

    std::map<std::wstring, File> m_files;
    std::map<std::wstring, std::wstring> m_links;  // the file that each points to
    std::set<std::wstring> m_folders, m_readOnly, m_locks;
    std::map<std::wstring, int> m_held;
    std::size_t m_capacity = std::numeric_limits<std::size_t>::max();
    int m_calls = 0, m_replacements = 0;
    int m_firstFailure = kForever, m_lastFailure = kForever;
    unsigned m_paused = 0;
    std::uint64_t m_created = 0;
    bool m_mayWait = true;
};
