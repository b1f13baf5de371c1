#include "core/list/TaskListPath.h"

#include <string_view>

#include "util/Path.h"

namespace {

// Every "HLP" counts, also one in the name of a folder.
std::wstring ListBesideExecutable(std::wstring path) {
    constexpr std::wstring_view kHelp = L"HLP";
    for (std::size_t at = path.find(kHelp); at != std::wstring::npos; at = path.find(kHelp, at)) {
        path.replace(at, kHelp.size(), L"ini");
    }
    return path;
}

void MoveOldList(const std::wstring& from, const std::wstring& to, ITaskListPlaces& places) {
    if (places.Exists(from) && !places.Exists(to) && places.Copy(from, to)) {
        places.Delete(from);
    }
}

}  // namespace

std::wstring SettleTaskListPath(const stTaskListNames& names, ITaskListPlaces& places) {
    const std::wstring file = L"\\" + names.executable + L".ini";
    const std::wstring beside = ListBesideExecutable(names.helpFile);
    std::wstring path =
        names.localFolder.empty() ? beside : names.localFolder + L"\\" + names.application + file;
    if (!places.Exists(path)) {
        places.CreateFolder(GetFolderPath(path));
    }
    if (!names.roamingFolder.empty()) {
        MoveOldList(names.roamingFolder + L"\\Scrivane" + file, path, places);
    }
    MoveOldList(beside, path, places);
    return path;
}
