#include "tests/support/PosixFileSystem.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <thread>
#include <utility>

#include "util/Utf8.h"

namespace {

using Status = IFileSystem::Status;

class CPosixFile final : public IFileSystem::IFile {
public:
    explicit CPosixFile(int file) : m_file(file) {}
    ~CPosixFile() override { (void)Close(); }

    [[nodiscard]] int Get() const { return m_file; }

    [[nodiscard]] bool Write(std::string_view bytes) override {
        while (!bytes.empty()) {
            const ssize_t written = write(m_file, bytes.data(), bytes.size());
            if (written <= 0) {
                return false;
            }
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
        return true;
    }
    [[nodiscard]] bool Flush() override { return fsync(m_file) == 0; }
    [[nodiscard]] bool Close() override {
        const int file = std::exchange(m_file, -1);
        return file != -1 && close(file) == 0;
    }

private:
    int m_file;
};

Status StatusOfErrno() {
    return errno == ENOENT || errno == ENOTDIR ? Status::Missing : Status::Failed;
}

}  // namespace

bool CPosixFileSystem::IsReadOnly(const std::wstring& path) {
    struct stat info {};
    return stat(ToUtf8(path).c_str(), &info) == 0 && (info.st_mode & S_IWUSR) == 0;
}

CPosixFileSystem::Status CPosixFileSystem::Read(const std::wstring& path, std::string& bytes) {
    const CPosixFile file(open(ToUtf8(path).c_str(), O_RDONLY | O_CLOEXEC));
    if (file.Get() == -1) {
        return StatusOfErrno();
    }
    struct stat info {};
    if (fstat(file.Get(), &info) != 0 || !S_ISREG(info.st_mode)) {
        return Status::Failed;
    }
    bytes.resize(static_cast<std::size_t>(info.st_size));
    std::size_t done = 0;
    ssize_t got = 0;
    while (done < bytes.size() && (got = read(file.Get(), bytes.data() + done, bytes.size() - done)) > 0) {
        done += static_cast<std::size_t>(got);
    }
    bytes.resize(done);
    return got < 0 ? Status::Failed : Status::Ok;
}

CPosixFileSystem::Status CPosixFileSystem::CreateLock(const std::wstring& path,
                                                      std::unique_ptr<IFile>& file) {
    // The file stays: removing it would let one process lock the old and another the new one.
    auto opened =
        std::make_unique<CPosixFile>(open(ToUtf8(path).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666));
    if (opened->Get() == -1) {
        return StatusOfErrno();
    }
    if (flock(opened->Get(), LOCK_EX | LOCK_NB) != 0) {
        return errno == EWOULDBLOCK ? Status::Busy : Status::Failed;
    }
    file = std::move(opened);
    return Status::Ok;
}

CPosixFileSystem::Status CPosixFileSystem::Create(const std::wstring& path, std::unique_ptr<IFile>& file) {
    auto opened = std::make_unique<CPosixFile>(
        open(ToUtf8(path).c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
    if (opened->Get() == -1) {
        return StatusOfErrno();
    }
    file = std::move(opened);
    return Status::Ok;
}

CPosixFileSystem::Status CPosixFileSystem::Replace(const std::wstring& from, const std::wstring& to) {
    const std::string target = ToUtf8(to);
    if (std::rename(ToUtf8(from).c_str(), target.c_str()) != 0) {
        return StatusOfErrno();
    }
    const auto slash = target.rfind('/');
    const std::string folder = slash == std::string::npos ? "." : target.substr(0, slash + 1);
    CPosixFile directory(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return directory.Flush() ? Status::Ok : Status::Failed;
}

void CPosixFileSystem::Remove(const std::wstring& path) {
    unlink(ToUtf8(path).c_str());
}

void CPosixFileSystem::Pause(unsigned milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}
