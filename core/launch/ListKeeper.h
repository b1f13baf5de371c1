#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "core/platform/FileSystem.h"

// Who has a list's tasks in memory for as long as it runs. The window saves them over what others have
// changed in the file, a watch launches them; nobody else is to edit or launch them meanwhile. Each holds a
// lock file beside the list (path + ".window" or ".watch", see LockPath), so that it counts for that list
// only and is released when its process dies.
class CListKeeper {
public:
    enum class Kind : std::uint8_t { Window, Watch };

    // `files` outlives the object. `list` is the path of the task list file.
    CListKeeper(IFileSystem& files, std::wstring list, Kind kind);

    // One try, which succeeds when this object keeps the list already. False when another program of that
    // kind keeps it. True also where nobody can, because the list's folder takes no files or is missing.
    [[nodiscard]] bool TryKeep();
    // Whether some program of that kind keeps the list. Takes nothing.
    [[nodiscard]] static bool IsKept(IFileSystem& files, const std::wstring& list, Kind kind);

private:
    IFileSystem& m_files;
    std::wstring m_list;
    Kind m_kind;
    std::unique_ptr<IFileSystem::IFile> m_lock;
};
