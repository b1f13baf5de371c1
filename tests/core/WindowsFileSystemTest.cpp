#include "core/WindowsFileSystem.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <random>

#include "core/ProfileFile.h"
#include "core/TaskListFile.h"
#include "tests/savechild/GenerationList.h"
#include "tests/support/FakeFileSystem.h"
#include "tests/support/TemporaryFolder.h"
#include "util/Handle.h"
#include "util/ModulePath.h"
#include "util/Path.h"

namespace {

using Status = IFileSystem::Status;

const std::string kOld = "[a]\r\nk=old\r\n";
const std::string kNew = "[a]\r\nk=new\r\n";

void SetNew(CPrivateProfile& profile) {
    const CPrivateProfile::Entry entry{L"k", L"new"};
    profile.SetStrings(L"a", {&entry, 1});
}

std::ptrdiff_t EntriesOf(const TemporaryFolder& folder) {
    return std::distance(std::filesystem::directory_iterator(folder.Path()), {});
}

CFileHandle HoldOpen(const std::wstring& path, DWORD share) {
    return CFileHandle(CreateFileW(path.c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr));
}

// The saving child; killed at the latest with its object.
class SaveChild {
public:
    explicit SaveChild(const std::wstring& arguments) {
        std::wstring commandLine = L'"' + GetFolderPath(GetModulePath()) + L"savechild.exe\" " + arguments;
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION process{};
        EXPECT_TRUE(CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW,
                                   nullptr, nullptr, &startup, &process));
        m_process = CKernelHandle(process.hProcess);
        const CKernelHandle thread(process.hThread);
    }
    ~SaveChild() { Kill(); }
    SaveChild(const SaveChild&) = delete;
    SaveChild& operator=(const SaveChild&) = delete;

    void Kill() const {
        TerminateProcess(m_process.Get(), 99);
        WaitForSingleObject(m_process.Get(), INFINITE);
    }
    // Once it has ended.
    [[nodiscard]] DWORD ExitCode() const {
        DWORD code = 0;
        EXPECT_EQ(WaitForSingleObject(m_process.Get(), 60'000), WAIT_OBJECT_0);
        GetExitCodeProcess(m_process.Get(), &code);
        return code;
    }

private:
    CKernelHandle m_process;
};

TEST(WindowsFileSystem, TellsWhyACallCouldNot) {
    const TemporaryFolder folder;
    CWindowsFileSystem files;
    const std::wstring path = folder.File(L"a.ini", std::string("a\0\r\n", 4));
    std::string bytes;
    EXPECT_EQ(files.Read(path, bytes), Status::Ok);
    EXPECT_EQ(bytes, std::string("a\0\r\n", 4));
    std::unique_ptr<IFileSystem::IFile> file;
    EXPECT_EQ(files.Read(folder.Path(L"none.ini"), bytes), Status::Missing);
    EXPECT_EQ(files.Read(folder.Path(L"none\\none.ini"), bytes), Status::Missing);
    EXPECT_EQ(files.CreateLock(folder.Path(L"none\\a.lock"), file), Status::Missing);
    EXPECT_EQ(files.Read(folder.Path(), bytes), Status::Failed);
    EXPECT_EQ(files.Replace(path, folder.Path()), Status::Failed);
    const std::wstring large = folder.File(L"large.ini", "");
    std::filesystem::resize_file(large, CWindowsFileSystem::kLargestFile + 1);
    EXPECT_EQ(files.Read(large, bytes), Status::Failed);
    {
        const CFileHandle shared = HoldOpen(path, FILE_SHARE_READ | FILE_SHARE_WRITE);
        EXPECT_EQ(files.Read(path, bytes), Status::Ok);
        EXPECT_EQ(files.Replace(large, path), Status::Busy);
    }
    const CFileHandle held = HoldOpen(path, 0);
    EXPECT_EQ(files.Read(path, bytes), Status::Busy);
    EXPECT_EQ(files.Create(path, file), Status::Busy);
    EXPECT_EQ(files.CreateLock(path, file), Status::Busy);
    EXPECT_EQ(files.Replace(path, large), Status::Busy);
    EXPECT_EQ(file, nullptr);
}

TEST(WindowsFileSystem, ASaveReplacesTheFileWholeOrNotAtAllAndLeavesNothingBesideIt) {
    const TemporaryFolder folder;
    CWindowsFileSystem files;
    const std::wstring path = folder.Path(L"a.ini");
    EXPECT_TRUE(EditProfile(files, path, [&](CPrivateProfile& profile) {
        std::unique_ptr<IFileSystem::IFile> lock;
        EXPECT_EQ(files.CreateLock(path + L".lock", lock), Status::Busy);
        SetNew(profile);
    }));
    EXPECT_EQ(BytesOf(path), kNew);
    EXPECT_EQ(EntriesOf(folder), 1);

    // What a power cut left behind is no lock, and no obstacle.
    (void)folder.File(L"a.ini.lock", "");
    (void)folder.File(L"a.ini.tmp", "half a list that is longer than the new one");
    (void)folder.File(L"a.ini", kOld);
    EXPECT_TRUE(EditProfile(files, path, SetNew));
    EXPECT_EQ(BytesOf(path), kNew);

    (void)folder.File(L"a.ini", kOld);
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_FALSE(EditProfile(files, path, SetNew));
    EXPECT_EQ(BytesOf(path), kOld);
    EXPECT_TRUE(files.IsReadOnly(path));
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_FALSE(EditProfile(files, folder.Path(), SetNew));
    EXPECT_FALSE(EditProfile(files, folder.Path(L"none\\a.ini"), SetNew));
    EXPECT_EQ(EntriesOf(folder), 1);
}

TEST(WindowsFileSystem, NamesOfAnyLanguageAndLength) {
    const TemporaryFolder folder;
    CWindowsFileSystem files;
    for (const std::size_t length : {std::size_t{250}, std::size_t{255}}) {
        std::wstring path = folder.Path(L"\x0441\x65e5\xd83d\xde00");
        path.resize(length, L'x');
        EXPECT_TRUE(EditProfile(files, path, SetNew)) << length;
        EXPECT_EQ(BytesOf(path), kNew);
        files.Remove(path);
        EXPECT_EQ(EntriesOf(folder), 0);
    }
    // Longer than Windows takes as it stands.
    const std::wstring deep = folder.Path(std::wstring(120, L'd'));
    const std::wstring deeper = deep + L'\\' + std::wstring(120, L'e');
    ASSERT_TRUE(CreateDirectoryW((L"\\\\?\\" + deep).c_str(), nullptr));
    ASSERT_TRUE(CreateDirectoryW((L"\\\\?\\" + deeper).c_str(), nullptr));
    EXPECT_TRUE(EditProfile(files, deeper + L"/../" + std::wstring(120, L'e') + L"\\a.ini", SetNew));
    std::string bytes;
    EXPECT_EQ(files.Read(deeper + L"\\a.ini", bytes), Status::Ok);
    EXPECT_EQ(bytes, kNew);
    files.Remove(deeper + L"\\a.ini");
    RemoveDirectoryW((L"\\\\?\\" + deeper).c_str());
}

TEST(WindowsFileSystem, TwoProcessesLoseNoneOfEachOthersSections) {
    constexpr int kEach = 300;
    const TemporaryFolder folder;
    const std::wstring path = folder.Path(L"a.ini");
    const std::wstring count = L" " + std::to_wstring(kEach);
    const SaveChild first(L"tasks \"" + path + L"\" 1" + count);
    const SaveChild second(L"tasks \"" + path + L"\" 1001" + count);
    EXPECT_EQ(first.ExitCode(), 0U);
    EXPECT_EQ(second.ExitCode(), 0U);
    const CPrivateProfile saved(BytesOf(path));
    EXPECT_EQ(FindTaskSections(saved, 1, 1000).size(), std::size_t{kEach});
    EXPECT_EQ(FindTaskSections(saved, 1001, 2000).size(), std::size_t{kEach});
    EXPECT_EQ(saved.GetString(L"SCVShchedulerTask1300", L"CommandLine"), L"\"C:\\1300.scvpr\"");
    EXPECT_EQ(EntriesOf(folder), 1);
}

// Finer than std::filesystem tells it, which is in seconds here.
ULONGLONG LastWrite(const std::wstring& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    EXPECT_TRUE(GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data));
    return ULONGLONG{data.ftLastWriteTime.dwHighDateTime} << 32 | data.ftLastWriteTime.dwLowDateTime;
}

// The generation that the list bears, which has to be there whole.
unsigned WholeGeneration(const std::wstring& path) {
    const std::string bytes = BytesOf(path);
    const auto result = CPrivateProfile(bytes).GetString(TaskSectionName(1), L"LastRunResult");
    const auto generation = static_cast<unsigned>(std::wcstoul(result.value_or(L"0").c_str(), nullptr, 10));
    CFakeFileSystem files;
    EXPECT_TRUE(GenerationList(generation)->TrySave(files, path));
    EXPECT_EQ(bytes, files.Bytes(path));
    return generation;
}

// SCV_KILL_ROUNDS asks for another number of rounds than 200, SCV_KILL_SEED for the delays of an earlier run.
// In turns of 25, each of which the watchdog times by itself.
constexpr unsigned kRoundsOfATurn = 25;

unsigned Setting(const wchar_t* name, unsigned otherwise) {
    const wchar_t* const value = _wgetenv(name);
    return value ? static_cast<unsigned>(std::wcstoul(value, nullptr, 10)) : otherwise;
}

class KilledWhileSaving : public testing::TestWithParam<unsigned> {};

TEST_P(KilledWhileSaving, AWholeListIsLeft) {
    const unsigned seed = Setting(L"SCV_KILL_SEED", std::random_device()()) + GetParam();
    std::mt19937 random(seed);
    std::uniform_int_distribution<int> microseconds(0, 15'000);

    const TemporaryFolder folder;
    const std::wstring path = folder.Path(L"a.ini");
    CWindowsFileSystem files;
    unsigned generation = 1;
    ASSERT_TRUE(GenerationList(generation)->TrySave(files, path));
    unsigned saves = 0;
    unsigned interrupted = 0;
    for (unsigned round = 0; round < kRoundsOfATurn; ++round) {
        SCOPED_TRACE(testing::Message() << "round " << round << ", seed " << seed - GetParam());
        const ULONGLONG before = LastWrite(path);
        const SaveChild child(L"lists \"" + path + L"\" " + std::to_wstring(generation + 1));
        // It has saved once the file has changed; only then is it worth killing.
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (LastWrite(path) == before) {
            ASSERT_LT(std::chrono::steady_clock::now(), deadline) << "the child does not save";
            Sleep(1);
        }
        const auto moment =
            std::chrono::steady_clock::now() + std::chrono::microseconds(microseconds(random));
        while (std::chrono::steady_clock::now() < moment) {
        }
        child.Kill();
        ASSERT_EQ(child.ExitCode(), 99U) << "it ended by itself";
        interrupted += std::filesystem::exists(path + L".tmp") ? 1U : 0U;
        const unsigned found = WholeGeneration(path);
        ASSERT_FALSE(testing::Test::HasFailure());
        ASSERT_GT(found, generation);
        saves += found - generation;
        generation = found;
    }
    std::cout << kRoundsOfATurn << " kills among " << saves << " saves, " << interrupted
              << " of them with a temporary file left (seed " << seed - GetParam() << ")\n";
    EXPECT_GT(interrupted, 0U) << "no kill came in the middle of a save";
}

INSTANTIATE_TEST_SUITE_P(WindowsFileSystem, KilledWhileSaving,
                         testing::Range(0U, (Setting(L"SCV_KILL_ROUNDS", 200) + kRoundsOfATurn - 1) /
                                                kRoundsOfATurn));

}  // namespace
