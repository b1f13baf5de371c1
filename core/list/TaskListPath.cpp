#include "core/list/TaskListPath.h"

#include <string_view>

#include "core/list/ProfileFile.h"
#include "core/platform/FileSystem.h"
#include "util/Path.h"

namespace {

// Replaces every "HLP", even in the name of a folder.
std::wstring ListBesideExecutable(std::wstring path) {
    constexpr std::wstring_view kHelp = L"HLP";
    for (std::size_t at = path.find(kHelp); at != std::wstring::npos; at = path.find(kHelp, at)) {
        path.replace(at, kHelp.size(), L"ini");
    }
    return path;
}

// The new file appears in one step: an incomplete copy would count as the list from then on.
void MoveOldList(const std::wstring& from, const std::wstring& to, IFileSystem& files) {
    if (!files.Exists(from) || files.Exists(to)) {
        return;
    }
    std::string bytes;
    if (files.Read(from, bytes) && ReplaceFileBytes(files, to, bytes)) {
        files.Remove(from);
    }
}

}  // namespace

std::wstring SettleTaskListPath(const stTaskListNames& names, IFileSystem& files) {
    const std::wstring file = L"\\" + names.executable + L".ini";
    const std::wstring beside = ListBesideExecutable(names.helpFile);
    std::wstring path =
        names.localFolder.empty() ? beside : names.localFolder + L"\\" + names.application + file;
    if (!files.Exists(path)) {
        files.CreateFolder(GetFolderPath(path));
    }
    if (!names.roamingFolder.empty()) {
        MoveOldList(names.roamingFolder + L"\\Scrivane" + file, path, files);
    }
    MoveOldList(beside, path, files);
    return path;
}
