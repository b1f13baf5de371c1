#include "util/Path.h"

namespace {

constexpr auto kNone = std::wstring_view::npos;

// Length of the folder part, its backslash included.
std::size_t FolderLength(std::wstring_view path) {
    const std::size_t slash = path.rfind(L'\\');
    return slash == kNone ? 0 : slash + 1;
}

}  // namespace

std::wstring GetFileName(std::wstring_view path) {
    return std::wstring(path.substr(FolderLength(path)));
}

std::wstring GetFolderPath(std::wstring_view path) {
    return std::wstring(path.substr(0, FolderLength(path)));
}

std::wstring GetFolderPathNoSlash(std::wstring_view path) {
    std::wstring folder = GetFolderPath(path);
    while (folder.ends_with(L'\\')) {
        folder.pop_back();
    }
    return folder;
}

std::wstring GetFileExtension(std::wstring_view path) {
    const std::size_t dot = path.rfind(L'.');
    std::size_t separator = path.rfind(L'\\');
    if (separator == kNone) {
        separator = path.rfind(L'/');
    }
    if (dot == kNone || (separator != kNone && dot < separator)) {
        return {};
    }
    const std::wstring_view extension = path.substr(dot + 1);
    return std::wstring(extension.substr(0, extension.find(L'/')));
}

std::wstring StripFileExtension(std::wstring_view path) {
    const std::size_t dot = path.rfind(L'.');
    const std::size_t folder = FolderLength(path);
    if (dot == kNone || dot < folder) {
        return std::wstring(path);
    }
    return std::wstring(path.substr(folder, dot - folder));
}
