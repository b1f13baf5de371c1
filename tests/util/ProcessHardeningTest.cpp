#include <gtest/gtest.h>
#include <windows.h>

#include "tests/support/TemporaryFolder.h"

// The test program hardens itself at its start, as every program of ours does.
TEST(ProcessHardening, ALibraryInTheCurrentFolderIsNotFound) {
    wchar_t system[MAX_PATH] = {};
    GetSystemDirectoryW(system, MAX_PATH);
    const TemporaryFolder folder;
    const std::wstring planted = folder.Path(L"scvplanted.dll");
    std::filesystem::copy_file(std::wstring(system) + L"\\hid.dll", planted);
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.Path());

    EXPECT_EQ(LoadLibraryW(L"scvplanted.dll"), nullptr);
    const HMODULE named = LoadLibraryW(planted.c_str());
    EXPECT_NE(named, nullptr) << "it is a library, only not one that is looked for here";

    if (named != nullptr) {
        FreeLibrary(named);
    }
    std::filesystem::current_path(before);
}
