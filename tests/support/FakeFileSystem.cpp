#include "tests/support/FakeFileSystem.h"

#include <algorithm>
#include <utility>

class CFakeFileSystem::CFile final : public IFile {
public:
    CFile(CFakeFileSystem& files, std::wstring path) : m_system(files), m_path(std::move(path)) {}

    [[nodiscard]] bool Write(std::string_view bytes) override {
        const Outcome outcome = m_system.CountCall();
        const std::size_t wanted = outcome == Outcome::Fails ? bytes.size() / 2 : bytes.size();
        const std::size_t written = std::min(wanted, m_system.Room());
        if (const auto file = m_system.m_files.find(m_path); file != m_system.m_files.end()) {
            file->second.bytes += bytes.substr(0, written);
        }
        return outcome == Outcome::Works && written == bytes.size();
    }

    [[nodiscard]] bool Flush() override {
        const Outcome outcome = m_system.CountCall();
        const auto file = m_system.m_files.find(m_path);
        if (outcome == Outcome::Fails || file == m_system.m_files.end()) {
            return false;
        }
        file->second.flushed = file->second.bytes.size();
        return outcome == Outcome::Works;
    }

    [[nodiscard]] bool Close() override { return m_system.CountCall() == Outcome::Works; }

private:
    CFakeFileSystem& m_system;
    std::wstring m_path;
};

class CFakeFileSystem::CLock final : public IFile {
public:
    CLock(CFakeFileSystem& files, std::wstring path) : m_system(files), m_path(std::move(path)) {
        m_system.m_locks.insert(m_path);
    }
    ~CLock() override { m_system.m_locks.erase(m_path); }
    [[nodiscard]] bool Write(std::string_view) override { return false; }
    [[nodiscard]] bool Flush() override { return false; }
    [[nodiscard]] bool Close() override { return true; }

private:
    CFakeFileSystem& m_system;
    std::wstring m_path;
};

void CFakeFileSystem::Put(const std::wstring& path, std::string bytes) {
    const std::size_t size = bytes.size();
    m_files[path] = {std::move(bytes), size};
}

void CFakeFileSystem::RestorePower() {
    m_cut = kForever;
    for (auto& [path, file] : m_files) {
        const std::size_t torn = file.flushed + (file.bytes.size() - file.flushed) / 2;
        std::fill(file.bytes.begin() + static_cast<std::ptrdiff_t>(torn), file.bytes.end(), '\0');
        file.flushed = file.bytes.size();
    }
}

CFakeFileSystem::Outcome CFakeFileSystem::CountCall() {
    ++m_calls;
    if (m_calls == m_cut && m_cutTakesEffect) {
        return Outcome::WorksUnseen;
    }
    return m_calls >= m_cut || (m_calls >= m_firstFailure && m_calls <= m_lastFailure) ? Outcome::Fails
                                                                                       : Outcome::Works;
}

bool CFakeFileSystem::IsHeld(const std::wstring& path) {
    const auto held = m_held.find(path);
    return held != m_held.end() && held->second > 0 && held->second-- > 0;
}

std::size_t CFakeFileSystem::Room() const {
    std::size_t used = 0;
    for (const auto& [path, file] : m_files) {
        used += file.bytes.size();
    }
    return m_capacity - std::min(used, m_capacity);
}

bool CFakeFileSystem::IsReadOnly(const std::wstring& path) {
    return CountCall() != Outcome::Fails && m_readOnly.contains(path);
}

CFakeFileSystem::Status CFakeFileSystem::Read(const std::wstring& path, std::string& bytes) {
    if (CountCall() != Outcome::Works || m_folders.contains(path)) {
        return Status::Failed;
    }
    const auto file = m_files.find(path);
    if (file == m_files.end()) {
        return Status::Missing;
    }
    if (IsHeld(path)) {
        return Status::Busy;
    }
    bytes = file->second.bytes;
    return Status::Ok;
}

CFakeFileSystem::Status CFakeFileSystem::CreateLock(const std::wstring& path, std::unique_ptr<IFile>& file) {
    if (CountCall() != Outcome::Works) {
        return Status::Failed;
    }
    if (m_locks.contains(path) || IsHeld(path)) {
        return Status::Busy;
    }
    file = std::make_unique<CLock>(*this, path);
    return Status::Ok;
}

CFakeFileSystem::Status CFakeFileSystem::Create(const std::wstring& path, std::unique_ptr<IFile>& file) {
    const Outcome outcome = CountCall();
    if (outcome == Outcome::Fails) {
        return Status::Failed;
    }
    if (IsHeld(path)) {
        return Status::Busy;
    }
    m_files[path] = {};
    file = std::make_unique<CFile>(*this, path);
    return outcome == Outcome::Works ? Status::Ok : Status::Failed;
}

CFakeFileSystem::Status CFakeFileSystem::Replace(const std::wstring& from, const std::wstring& to) {
    const Outcome outcome = CountCall();
    const auto source = m_files.find(from);
    if (outcome == Outcome::Fails || source == m_files.end()) {
        return Status::Failed;
    }
    if (IsHeld(to)) {
        return Status::Busy;
    }
    m_files[to] = std::move(source->second);
    m_files.erase(source);
    m_readOnly.erase(to);
    ++m_replacements;
    return outcome == Outcome::Works ? Status::Ok : Status::Failed;
}

void CFakeFileSystem::Remove(const std::wstring& path) {
    if (CountCall() != Outcome::Fails) {
        m_files.erase(path);
    }
}
