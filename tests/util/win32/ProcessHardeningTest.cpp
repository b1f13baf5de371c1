#include <gtest/gtest.h>
#include <windows.h>

#include "tests/support/TemporaryFolder.h"

// The test program hardens itself at its start, as every program of ours does.
TEST(ProcessHardening, ALibraryInTheCurrentFolderIsNotFound) {
    const TemporaryFolder folder;
    const std::wstring planted = folder.Path(L"scvplanted.dll");
    std::filesystem::copy_file(L"C:\\windows\\system32\\hid.dll", planted);
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path());
    EXPECT_EQ(LoadLibraryW(L"scvplanted.dll"), nullptr);
    const HMODULE named = LoadLibraryW(planted.c_str());
    EXPECT_NE(named, nullptr) << "it is a library, only not one that is looked for here";
    FreeLibrary(named);
    std::filesystem::current_path(before);
}
