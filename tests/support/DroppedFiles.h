#pragma once

#include <windows.h>

#include <shlobj.h>

#include <cstring>
#include <string>

// What Explorer sends in WM_DROPFILES for these paths, each ended by a zero. The receiving window frees it.
inline HGLOBAL MakeDroppedFiles(const std::wstring& paths) {
    const HGLOBAL memory = GlobalAlloc(GHND, sizeof(DROPFILES) + (paths.size() + 1) * sizeof(wchar_t));
    auto* record = static_cast<DROPFILES*>(GlobalLock(memory));
    record->pFiles = sizeof(DROPFILES);
    record->fWide = TRUE;
    std::memcpy(record + 1, paths.data(), paths.size() * sizeof(wchar_t));
    GlobalUnlock(memory);
    return memory;
}
