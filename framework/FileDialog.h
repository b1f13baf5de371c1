#pragma once

#include <windows.h>

#include <commdlg.h>

#include <functional>
#include <string>
#include <vector>

#include "framework/Wnd.h"

// The system's dialog for choosing files. It only returns paths; it opens and writes nothing.
class CFileDialog {
public:
    // `open` chooses between the open and the save dialog; `fileName` is the first content of the name box;
    // `filter` has pairs of a description and its patterns, each followed by '|', and one more '|' at the
    // end; `flags` are OFN_ flags.
    CFileDialog(bool open, const wchar_t* defaultExtension, std::wstring fileName, DWORD flags,
                std::wstring filter, const CWnd* parent);

    // The folder that is shown first, unless the file name contains a folder.
    void SetInitialFolder(const std::wstring& folder) { m_folder = folder; }
    // The size of the result's buffer in characters, for the folder and all names together; 32,768 by
    // default.
    void SetBufferSize(DWORD characters) { m_bufferSize = characters; }

    // IDOK or IDCANCEL; IDCANCEL also when the result does not fit.
    INT_PTR DoModal();

    // After IDOK: the chosen path, the first one of several.
    [[nodiscard]] std::wstring GetPathName() const {
        return m_paths.empty() ? std::wstring() : m_paths.front();
    }
    // All chosen paths in the dialog's order.
    [[nodiscard]] const std::vector<std::wstring>& GetPathNames() const noexcept { return m_paths; }

private:
    bool m_open;
    std::wstring m_extension;
    std::wstring m_fileName;
    std::wstring m_filter;
    std::wstring m_folder;
    DWORD m_flags;
    DWORD m_bufferSize = 32'768;
    HWND m_owner;
    std::vector<std::wstring> m_paths;
};

// Replaces the system's dialogs: a test fills in the record's file buffer instead of waiting for a user. An
// empty function restores the system's dialogs. Returns the function set before.
using FileDialogFunction = std::function<bool(bool open, OPENFILENAMEW& record)>;
FileDialogFunction AfxSetFileDialog(FileDialogFunction function);
