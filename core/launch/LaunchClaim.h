#pragma once

#include <memory>
#include <string>

#include "core/platform/FileSystem.h"

// The claim to launch a list's due projects. Of all programs that use the list, also in other sessions of the
// user, only one at a time can hold it. It is a lock file beside the list (path + ".launch", see LockPath),
// so the system releases it when its process dies. Use one object for each scheduler and list.
class CLaunchClaim {
public:
    // `files` outlives the object. `list` is the path of the task list file.
    CLaunchClaim(IFileSystem& files, std::wstring list);

    [[nodiscard]] const std::wstring& List() const noexcept { return m_list; }
    // Takes the claim unless this object holds it already. Waits for it for up to ten seconds where waiting
    // is allowed. Busy when another program holds it. Ok also when no lock can be created because the list's
    // folder is missing or not writable: due projects have to run there, too.
    [[nodiscard]] FileResult TryTake();
    void Release() noexcept { m_lock.reset(); }
    [[nodiscard]] bool IsTaken() const noexcept { return m_lock != nullptr; }

private:
    IFileSystem& m_files;
    std::wstring m_list;
    std::unique_ptr<IFileSystem::IFile> m_lock;
};
