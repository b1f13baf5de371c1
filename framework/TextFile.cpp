#include "framework/TextFile.h"

#include "framework/MessageBox.h"
#include "util/win32/TextFile.h"

std::wstring ReadTextFile(const std::wstring& path) {
    return ReadTextFile(path, AfxMessageBox);
}

int SaveTextFile(const std::wstring& text, const std::wstring& path, bool append) {
    return SaveTextFile(text, path, append, AfxMessageBox);
}

int WriteBytesToFile(const void* data, std::size_t length, const std::wstring& path, bool append) {
    return WriteBytesToFile(data, length, path, append, AfxMessageBox);
}
