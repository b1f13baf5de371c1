#include "core/platform/FileSystem.h"

namespace {

const wchar_t* OwnText(FileResult::Status status) {
    switch (status) {
        case FileResult::Status::Missing:
            return L"The file does not exist";
        case FileResult::Status::Busy:
            return L"The file is in use by another program";
        case FileResult::Status::ReadOnly:
            return L"The file is read-only";
        default:
            return L"The file cannot be used";
    }
}

}  // namespace

std::wstring DescribeFailure(IFileSystem& files, const FileResult& result) {
    const std::wstring reason = result.error != 0 ? files.ErrorText(result.error) : OwnText(result.status);
    return result.path.empty() ? reason : reason + L": " + result.path;
}
