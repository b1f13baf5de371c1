#pragma once

#include <algorithm>
#include <optional>
#include <utility>

#include "framework/FileDialog.h"

// Answers every file dialog at once while it lives, with the raw contents of its file buffer or, without any,
// with a cancel; and keeps what the dialog was asked for.
class FileDialogAnswer {
public:
    explicit FileDialogAnswer(const std::optional<std::wstring>& answer)
        : m_before(AfxSetFileDialog([this, answer](bool openForm, OPENFILENAMEW& record) {
              ++count;
              open = openForm;
              flags = record.Flags;
              fileName = record.lpstrFile;
              extension = record.lpstrDefExt != nullptr ? record.lpstrDefExt : L"";
              filter.clear();
              for (const wchar_t* text = record.lpstrFilter; text != nullptr && *text != L'\0';
                   text += std::wcslen(text) + 1) {
                  filter += std::wstring(text) + L'|';
              }
              const bool fits = answer && answer->size() + 2 <= record.nMaxFile;
              if (fits) {
                  std::fill_n(std::copy(answer->begin(), answer->end(), record.lpstrFile), 2, L'\0');
              }
              return fits;
          })) {}
    FileDialogAnswer(const FileDialogAnswer&) = delete;
    FileDialogAnswer& operator=(const FileDialogAnswer&) = delete;
    ~FileDialogAnswer() { AfxSetFileDialog(std::move(m_before)); }

    int count = 0;
    bool open = false;
    DWORD flags = 0;
    std::wstring fileName, extension;
    std::wstring filter;  // each of its texts followed by '|'

private:
    FileDialogFunction m_before;
};
