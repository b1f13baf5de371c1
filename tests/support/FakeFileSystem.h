#pragma once

#include <limits>
#include <map>
#include <set>
#include <string>

#include "core/FileSystem.h"

// Files in memory, for tests. Any call can be made to fail, and the power can be cut.
//
// Calls are counted from 1 in the order in which they are made: IsReadOnly, Read, CreateLock, Create, Write,
// Flush, Close, Replace and Remove count; Pause and destructors do not. Paths compare exactly.
class CFakeFileSystem final : public IFileSystem {
public:
    static constexpr int kForever = std::numeric_limits<int>::max();

    // What a file holds; raises std::out_of_range when there is none.
    [[nodiscard]] const std::string& Bytes(const std::wstring& path) const { return m_files.at(path).bytes; }
    [[nodiscard]] bool Has(const std::wstring& path) const { return m_files.contains(path); }
    [[nodiscard]] std::size_t FileCount() const { return m_files.size(); }
    // A file that is safely on the medium.
    void Put(const std::wstring& path, std::string bytes);
    void PutFolder(const std::wstring& path) { m_folders.insert(path); }
    void SetReadOnly(const std::wstring& path) { m_readOnly.insert(path); }

    // The next `tries` calls that open or replace this path find it busy.
    void Hold(const std::wstring& path, int tries) { m_held[path] = tries; }
    // Writing beyond so many bytes in all files together fails and leaves what fitted.
    void SetCapacity(std::size_t bytes) { m_capacity = bytes; }
    // Calls first to last fail without effect, a Write after half of its bytes.
    void FailCalls(int first, int last) { m_firstFailure = first, m_lastFailure = last; }
    // Call `number` takes effect, or not, and nothing works any more until RestorePower.
    void CutPowerAt(int number, bool takesEffect) { m_cut = number, m_cutTakesEffect = takesEffect; }
    // The machine is back: what was not flushed is torn, no file is open.
    void RestorePower();

    [[nodiscard]] int Calls() const { return m_calls; }
    [[nodiscard]] int Replacements() const { return m_replacements; }
    [[nodiscard]] unsigned PausedMilliseconds() const { return m_paused; }

    [[nodiscard]] bool IsReadOnly(const std::wstring& path) override;
    [[nodiscard]] Status Read(const std::wstring& path, std::string& bytes) override;
    [[nodiscard]] Status CreateLock(const std::wstring& path, std::unique_ptr<IFile>& file) override;
    [[nodiscard]] Status Create(const std::wstring& path, std::unique_ptr<IFile>& file) override;
    [[nodiscard]] Status Replace(const std::wstring& from, const std::wstring& to) override;
    void Remove(const std::wstring& path) override;
    void Pause(unsigned milliseconds) override { m_paused += milliseconds; }

private:
    class CFile;
    class CLock;
    struct File {
        std::string bytes;
        std::size_t flushed = 0;  // so many of them survive a power cut
    };
    enum class Outcome { Works, Fails, WorksUnseen };

    [[nodiscard]] Outcome CountCall();
    [[nodiscard]] bool IsHeld(const std::wstring& path);
    [[nodiscard]] std::size_t Room() const;

    std::map<std::wstring, File> m_files;
    std::set<std::wstring> m_folders, m_readOnly, m_locks;
    std::map<std::wstring, int> m_held;
    std::size_t m_capacity = std::numeric_limits<std::size_t>::max();
    int m_calls = 0, m_replacements = 0;
    int m_firstFailure = kForever, m_lastFailure = kForever;
    int m_cut = kForever;
    bool m_cutTakesEffect = false;
    unsigned m_paused = 0;
};
