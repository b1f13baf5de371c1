#pragma once

#include <memory>
#include <string>

#include "core/platform/FileSystem.h"

// The claim to launch a list's due projects. Of all programs that use the list, also in other sessions of the
// user, one at a time has it. It is a lock file beside the list (path + ".launch", see LockPath), so that the
// system releases it when its process dies. Use one object for each scheduler and list.
class CLaunchClaim {
public:
    // `files` outlives the object. `list` is the path of the task list file.
    CLaunchClaim(IFileSystem& files, std::wstring list);

    [[nodiscard]] const std::wstring& List() const noexcept { return m_list; }
    // Takes the claim unless this object has it already; where waiting is allowed it waits for some seconds.
    // Busy when another program has it. Ok also where no lock can be created, because the list's folder is
    // not writable or gone: due projects have to run there, too.
    [[nodiscard]] FileResult TryTake();
    void Release() noexcept { m_lock.reset(); }
    [[nodiscard]] bool IsTaken() const noexcept { return m_lock != nullptr; }

private:
    IFileSystem& m_files;
    std::wstring m_list;
    std::unique_ptr<IFileSystem::IFile> m_lock;
};
