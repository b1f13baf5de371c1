#pragma once

#include <algorithm>
#include <optional>
#include <utility>

#include "framework/FileDialog.h"

// While it exists, closes every file dialog at once with a path, or cancels it when there is none, and
// records how the dialog was opened. It leaves in the file buffer what the system's dialog leaves there: a
// multiple selection (a folder and names, separated by zeros) ends with two zeros, a single path with one,
// and behind that the buffer keeps the text with which the dialog was opened.
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
              const std::size_t zeros = (record.Flags & OFN_ALLOWMULTISELECT) != 0 ? 2 : 1;
              const bool fits = answer && answer->size() + zeros <= record.nMaxFile;
              if (fits) {
                  std::fill_n(std::copy(answer->begin(), answer->end(), record.lpstrFile), zeros, L'\0');
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
