#include "framework/FileDialog.h"

#include <cderr.h>

#include <algorithm>
#include <utility>

namespace {

FileDialogFunction g_fileDialog;

bool Ask(bool open, OPENFILENAMEW& record) {
    if (g_fileDialog) {
        return g_fileDialog(open, record);
    }
    const auto ask = open ? &GetOpenFileNameW : &GetSaveFileNameW;
    if (ask(&record)) {
        return true;
    }
    if (CommDlgExtendedError() != FNERR_INVALIDFILENAME) {
        return false;
    }
    // With an invalid file name the dialog does not open at all. Open it without the name then: it may only
    // be a typing error.
    record.lpstrFile[0] = L'\0';
    return ask(&record) != 0;
}

// The result of a dialog for one file: a path that ends with one NUL. The rest of the buffer keeps its
// contents.
std::vector<std::wstring> ReadPath(const wchar_t* buffer) {
    return {buffer};
}

// The result of a dialog for several files: a single path, or a folder and the names in it. The list ends
// with an empty text.
std::vector<std::wstring> ReadPaths(const wchar_t* buffer) {
    std::vector<std::wstring> paths;
    for (const wchar_t* text = buffer; *text != L'\0'; text += paths.back().size() + 1) {
        paths.emplace_back(text);
    }
    if (paths.size() > 1) {
        std::wstring folder = std::move(paths.front());
        paths.erase(paths.begin());
        if (!folder.ends_with(L'\\')) {
            folder += L'\\';
        }
        for (std::wstring& path : paths) {
            path.insert(0, folder);
        }
    }
    return paths;
}

}  // namespace

FileDialogFunction AfxSetFileDialog(FileDialogFunction function) {
    return std::exchange(g_fileDialog, std::move(function));
}

CFileDialog::CFileDialog(bool open, const wchar_t* defaultExtension, std::wstring fileName, DWORD flags,
                         std::wstring filter, const CWnd* parent)
    : m_open(open),
      m_extension(defaultExtension != nullptr ? defaultExtension : L""),
      m_fileName(std::move(fileName)),
      m_filter(std::move(filter)),
      m_flags(flags),
      m_owner(parent != nullptr ? parent->m_hWnd : nullptr) {
    std::replace(m_filter.begin(), m_filter.end(), L'|', L'\0');
}

INT_PTR CFileDialog::DoModal() {
    m_paths.clear();
    std::vector<wchar_t> buffer(std::max<std::size_t>(m_bufferSize, m_fileName.size() + 2));
    std::copy(m_fileName.begin(), m_fileName.end(), buffer.begin());
    OPENFILENAMEW record{};
    record.lStructSize = sizeof(record);
    record.hwndOwner = m_owner;
    record.lpstrFilter = m_filter.empty() ? nullptr : m_filter.c_str();
    record.lpstrFile = buffer.data();
    record.nMaxFile = static_cast<DWORD>(buffer.size());
    record.lpstrInitialDir = m_folder.empty() ? nullptr : m_folder.c_str();
    record.lpstrDefExt = m_extension.empty() ? nullptr : m_extension.c_str();
    // Browsing in the dialog must not change the program's current folder.
    record.Flags = m_flags | OFN_EXPLORER | OFN_ENABLESIZING | OFN_NOCHANGEDIR;
    if (!Ask(m_open, record)) {
        return IDCANCEL;
    }
    m_paths = (m_flags & OFN_ALLOWMULTISELECT) != 0 ? ReadPaths(buffer.data()) : ReadPath(buffer.data());
    return IDOK;
}
