#include "core/platform/win32/WindowsFileSystem.h"

#include <windows.h>

#include <aclapi.h>
#include <process.h>
#include <sddl.h>

#include <gtest/gtest.h>

#include <chrono>
#include <iostream>
#include <random>

#include "core/list/ProfileFile.h"
#include "core/list/TaskListFile.h"
#include "tests/savechild/GenerationList.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/FakeFileSystem.h"
#include "tests/support/TemporaryFolder.h"
#include "util/Path.h"
#include "util/win32/Handle.h"
#include "util/win32/ModulePath.h"

namespace {

using Status = IFileSystem::Status;
using std::chrono::steady_clock;

class WindowsFileSystem : public testing::Test {
protected:
    static void SetNew(CPrivateProfile& profile) {
        const CPrivateProfile::Entry entry{L"k", L"new"};
        profile.SetStrings(L"a", {&entry, 1});
    }

    // Wine has no CreateSymbolicLink that makes one, but follows those of its host.
    static void MakeLink(const std::wstring& link, const std::wstring& target) {
        using UnixName = char*(__cdecl*)(const wchar_t*);
        const auto unixName = reinterpret_cast<UnixName>(reinterpret_cast<void*>(
            GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name")));
        if (unixName == nullptr) {
            ASSERT_TRUE(CreateSymbolicLinkW(link.c_str(), target.c_str(), 0));
            return;
        }
        const auto quoted = [&](const std::wstring& name) {
            return L" \"" + std::filesystem::path(unixName(name.c_str())).wstring() + L'"';
        };
        std::wstring command = L"ln -s" + quoted(target) + quoted(link);
        STARTUPINFOW start{};
        start.cb = sizeof(start);
        PROCESS_INFORMATION started{};
        ASSERT_TRUE(CreateProcessW(L"\\\\?\\unix\\bin\\ln", command.data(), nullptr, nullptr, FALSE, 0,
                                   nullptr, nullptr, &start, &started));
        // There is no handle of a process of the host to wait for.
        while (GetFileAttributesW(link.c_str()) == INVALID_FILE_ATTRIBUTES) {
            SwitchToThread();
        }
    }

    const TemporaryFolder folder;
    const std::wstring path = folder.File(L"a.ini", "[a]\r\nk=old\r\n");
    const std::string kNew = "[a]\r\nk=new\r\n";
    CWindowsFileSystem files;
    std::string bytes;
    std::unique_ptr<IFileSystem::IFile> file;
};

TEST_F(WindowsFileSystem, ReportsWhyACallFailed) {
    EXPECT_EQ(files.Read(folder.Path(L"none.ini"), bytes), Status::Missing);
    EXPECT_EQ(files.CreateLock(folder.Path(L"none\\a.lock"), file), Status::Missing);
    EXPECT_EQ(files.Read(folder.Path(), bytes), Status::Failed);
    const std::wstring other = folder.File(L"other.ini", "");
    for (const DWORD share : {DWORD{FILE_SHARE_READ | FILE_SHARE_WRITE}, DWORD{0}}) {
        const CFileHandle held(
            CreateFileW(path.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr));
        EXPECT_EQ(files.Read(path, bytes), share != 0 ? Status::Ok : Status::Busy) << "sharing " << share;
        EXPECT_EQ(files.Replace(other, path), Status::Busy) << "sharing " << share;
    }
}

TEST_F(WindowsFileSystem, ReplacesTheFileWholeOrNotAtAll) {
    // What a power cut left behind is no lock, and no obstacle.
    (void)folder.File(L"a.ini.lock", "");
    (void)folder.File(L"a.ini.tmp", "half a list that is longer than the new one");
    EXPECT_TRUE(LockAndEditProfile(files, path, [&](CPrivateProfile& profile) {
        EXPECT_EQ(files.CreateLock(path + L".lock", file), Status::Busy) << "one at a time";
        SetNew(profile);
    }));
    EXPECT_EQ(BytesOf(path), kNew);
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_FALSE(
        LockAndEditProfile(files, path, [](CPrivateProfile& profile) { profile.RemoveSection(L"a"); }));
    EXPECT_EQ(BytesOf(path), kNew);
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
}

TEST_F(WindowsFileSystem, SavesTheTargetOfALink) {
    const std::wstring link = folder.Path(L"link.ini");
    ASSERT_NO_FATAL_FAILURE(MakeLink(link, path));
    EXPECT_TRUE(LockAndEditProfile(files, link, [&](CPrivateProfile& profile) {
        EXPECT_EQ(files.CreateLock(path + L".lock", file), Status::Busy) << "the lock is the target's";
        SetNew(profile);
    }));
    EXPECT_EQ(BytesOf(path), kNew);
    EXPECT_TRUE(
        LockAndEditProfile(files, link, [](CPrivateProfile& profile) { profile.RemoveSection(L"a"); }));
    EXPECT_EQ(BytesOf(path), "") << "it is still a link";
    // The folder could not be removed under Wine while it holds a link.
    EXPECT_TRUE(files.Replace(folder.File(L"other.ini", "other"), link));
    EXPECT_EQ(BytesOf(path), "");
}

TEST_F(WindowsFileSystem, UsesPathsLongerThanMaxPath) {
    const std::wstring name(200, L'd');
    const std::wstring deep = folder.Path(name);
    ASSERT_TRUE(CreateDirectoryW((L"\\\\?\\" + deep).c_str(), nullptr));
    const std::wstring list = deep + L"/../" + name + L'\\' + std::wstring(99, L'a');
    EXPECT_TRUE(LockAndEditProfile(files, list, SetNew));
    EXPECT_EQ(files.Read(list, bytes), Status::Ok);
    EXPECT_EQ(bytes, kNew);
    files.Remove(list);
}

TEST_F(WindowsFileSystem, SavedFileStaysHidden) {
    constexpr DWORD kAttributes = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    SetFileAttributesW(path.c_str(), kAttributes);
    EXPECT_TRUE(LockAndEditProfile(files, path, SetNew));
    EXPECT_EQ(BytesOf(path), kNew);
    EXPECT_EQ(GetFileAttributesW(path.c_str()) & kAttributes, kAttributes);
}

TEST_F(WindowsFileSystem, SavedFileKeepsItsAccessList) {
    // Everybody, and nothing from the folder.
    PSECURITY_DESCRIPTOR wanted = nullptr;
    ASSERT_TRUE(ConvertStringSecurityDescriptorToSecurityDescriptorW(L"D:P(A;;FA;;;WD)", SDDL_REVISION_1,
                                                                     &wanted, nullptr));
    ASSERT_TRUE(SetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, wanted));
    LocalFree(wanted);
    const auto list = [&] {
        PSECURITY_DESCRIPTOR found = nullptr;
        wchar_t* text = nullptr;
        GetNamedSecurityInfoW(path.c_str(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr,
                              nullptr, nullptr, &found);
        ConvertSecurityDescriptorToStringSecurityDescriptorW(found, SDDL_REVISION_1,
                                                             DACL_SECURITY_INFORMATION, &text, nullptr);
        std::wstring result = text != nullptr ? text : L"";
        LocalFree(text);
        LocalFree(found);
        return result;
    };
    const std::wstring before = list();
    EXPECT_TRUE(LockAndEditProfile(files, path, SetNew));
    EXPECT_EQ(list(), before);
}

// SCV_KILL_ROUNDS asks for another number of rounds than 200.
TEST_F(WindowsFileSystem, AKillWhileSavingLeavesAWholeList) {
    const wchar_t* const setting = _wgetenv(L"SCV_KILL_ROUNDS");
    const int rounds = setting != nullptr ? _wtoi(setting) : 200;
    const std::wstring program = GetFolderPath(GetModulePath()) + L"savechild.exe";
    std::random_device random;
    unsigned generation = 0;
    int interrupted = 0;
    std::error_code ignored;
    files.Remove(path);
    for (int round = 0; round < rounds && !HasFailure(); ++round) {
        const auto before = std::filesystem::file_size(path, ignored);
        const CKernelHandle child = StartChild(
            L"\"" + program + L"\" \"" + path + L"\" " + std::to_wstring(generation + 1), DETACHED_PROCESS);
        // It has saved once the file's size has changed; only then is it worth killing.
        for (int tries = 0; tries < 20'000 && std::filesystem::file_size(path, ignored) == before; ++tries) {
            Sleep(1);
        }
        const auto moment = steady_clock::now() + std::chrono::microseconds(random() % 15'000);
        while (steady_clock::now() < moment) {
        }
        TerminateProcess(child.Get(), 99);
        WaitForSingleObject(child.Get(), INFINITE);
        DWORD code = 0;
        GetExitCodeProcess(child.Get(), &code);
        EXPECT_EQ(code, 99U) << "it ended by itself";
        interrupted += std::filesystem::exists(path + L".tmp") ? 1 : 0;
        // The generation that the list bears has to be there whole.
        const std::string list = BytesOf(path);
        const auto found =
            static_cast<unsigned>(CPrivateProfile(list).GetInt(TaskSectionName(1), L"LastRunResult", 0));
        EXPECT_GT(found, generation);
        generation = found;
        CFakeFileSystem whole;
        EXPECT_TRUE(SaveGeneration(generation, whole, path));
        EXPECT_EQ(list, whole.Bytes(path)) << "round " << round;
    }
    std::cout << rounds << " kills among " << generation << " saves, " << interrupted
              << " of them with a temporary file left\n";
    EXPECT_TRUE(interrupted > 0 || rounds < 100) << "no kill came in the middle of a save";
}

}  // namespace
