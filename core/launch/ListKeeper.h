#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "core/platform/FileSystem.h"

// Marks a list whose tasks a program keeps in memory while it runs. A window would overwrite changes of
// others in the file, and a watch launches the tasks; so no other program may edit or launch them meanwhile.
// The mark is a lock file beside the list (path + ".window" or ".watch", see LockPath): it applies to that
// list only, and the system releases it when the process dies.
class CListKeeper {
public:
    enum class Kind : std::uint8_t { Window, Watch };

    // `files` outlives the object. `list` is the path of the task list file.
    CListKeeper(IFileSystem& files, std::wstring list, Kind kind);

    // Tries once to keep the list. True when this object keeps it already. False when another program of this
    // kind keeps it. True also when no lock can be created because the list's folder is missing or not
    // writable.
    [[nodiscard]] bool TryKeep();
    // Whether a program of this kind keeps the list. Does not take the lock.
    [[nodiscard]] static bool IsKept(IFileSystem& files, const std::wstring& list, Kind kind);

private:
    IFileSystem& m_files;
    std::wstring m_list;
    Kind m_kind;
    std::unique_ptr<IFileSystem::IFile> m_lock;
};
