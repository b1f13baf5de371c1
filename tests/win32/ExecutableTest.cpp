#include <gmock/gmock.h>
#include <windows.h>

#include <algorithm>
#include <set>
#include <string>

#include "util/Path.h"
#include "util/win32/ModulePath.h"

namespace {

// What a program is shipped or tested with, as the system lays it out in memory.
class Executable : public testing::TestWithParam<const wchar_t*> {
protected:
    ~Executable() override { FreeLibrary(m_module); }

    template <class T>
    [[nodiscard]] const T* At(DWORD address) const {
        // The lowest bits of a module that is only looked at are marks.
        return reinterpret_cast<const T*>((reinterpret_cast<UINT_PTR>(m_module) & ~UINT_PTR{3}) + address);
    }

    HMODULE m_module = LoadLibraryExW((GetFolderPath(GetModulePath()) + GetParam()).c_str(), nullptr,
                                      LOAD_LIBRARY_AS_IMAGE_RESOURCE);
};

TEST_P(Executable, IsHardenedAndNeedsNothingButWindows) {
    ASSERT_NE(m_module, nullptr) << GetLastError();
    const auto& headers = *At<IMAGE_NT_HEADERS>(static_cast<DWORD>(At<IMAGE_DOS_HEADER>(0)->e_lfanew));
    const IMAGE_OPTIONAL_HEADER& header = headers.OptionalHeader;
    ASSERT_EQ(header.Magic, IMAGE_NT_OPTIONAL_HDR_MAGIC);
    EXPECT_TRUE(header.DllCharacteristics & IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE);
    EXPECT_TRUE(header.DllCharacteristics & IMAGE_DLLCHARACTERISTICS_NX_COMPAT);
    EXPECT_GT(header.DataDirectory[IMAGE_DIRECTORY_ENTRY_BASERELOC].Size, 0U)
        << "without them it cannot be moved";
    EXPECT_EQ(header.MajorSubsystemVersion, 6);
    EXPECT_TRUE(FindResourceW(m_module, MAKEINTRESOURCEW(1), RT_MANIFEST));

    std::set<std::string> imports;
    for (const auto* library =
             At<IMAGE_IMPORT_DESCRIPTOR>(header.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress);
         library->Name != 0; ++library) {
        std::string name = At<char>(library->Name);
        std::ranges::transform(name, name.begin(), [](char c) { return static_cast<char>(std::tolower(c)); });
        imports.insert(name);
    }
    EXPECT_TRUE(imports.contains("kernel32.dll"));
    EXPECT_THAT(imports,
                testing::Each(testing::AnyOf("advapi32.dll", "bcrypt.dll", "comctl32.dll", "comdlg32.dll",
                                             "gdi32.dll", "kernel32.dll", "msvcrt.dll", "ole32.dll",
                                             "oleaut32.dll", "rpcrt4.dll", "shell32.dll", "shlwapi.dll",
                                             "user32.dll", "uxtheme.dll", "version.dll", "ws2_32.dll")));
}

// Relative to the test program.
INSTANTIATE_TEST_SUITE_P(All, Executable,
                         testing::Values(L"scv_tests.exe", L"standin.exe", L"savechild.exe",
                                         L"../cli/scvsched.exe", L"../ui/SCVScheduler.exe"));

}  // namespace
