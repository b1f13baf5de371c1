#pragma once

#include <windows.h>

#include <atomic>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

// A new empty folder among the user's temporary files; the destructor deletes it with its contents.
class TemporaryFolder {
public:
    TemporaryFolder() {
        // Several test processes run at once, and runs that were killed left their folders behind.
        static std::atomic<unsigned> counter = GetCurrentProcessId() * 10'000;
        do {
            m_path = std::filesystem::temp_directory_path() / (L"scv" + std::to_wstring(++counter));
        } while (!std::filesystem::create_directory(m_path));
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    // The full path of an entry of that name, which need not exist.
    [[nodiscard]] std::wstring Path(std::wstring_view name = {}) const {
        return name.empty() ? m_path.wstring() : (m_path / name).wstring();
    }
    // Writes a file and returns its path.
    [[nodiscard]] std::wstring File(std::wstring_view name, std::string_view bytes) const {
        std::ofstream(m_path / name, std::ios::binary) << bytes;
        return Path(name);
    }

private:
    std::filesystem::path m_path;
};

// A file's contents; nullopt when there is no such file.
inline std::string BytesOf(const std::wstring& path) {
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}
