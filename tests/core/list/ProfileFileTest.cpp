#include "core/list/ProfileFile.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/support/FakeFileSystem.h"

namespace {

const std::wstring kPath = L"C:\\lists\\tasks.ini";
const std::string kOld = "; mine\r\n[a]\r\nk=old\r\n";
const std::string kNew = "; mine\r\n[a]\r\nk=new\r\n";

void SetNew(CPrivateProfile& profile) {
    const CPrivateProfile::Entry entry{L"k", L"new"};
    profile.SetStrings(L"a", {&entry, 1});
}

// A disk with the old list on it.
struct Disk : CFakeFileSystem {
    Disk() { Put(kPath, kOld); }
    FileResult Save() { return LockAndEditProfile(*this, kPath, SetNew); }
};

// Whatever went wrong, the list is whole, and the next save works and leaves nothing but the list.
TEST(ProfileFile, AnyCallMayFailOrLoseThePower) {
    for (const bool losesPower : {false, true}) {
        bool isFailing = true;
        for (int call = 1; isFailing; ++call) {
            SCOPED_TRACE(testing::Message() << "call " << call << (losesPower ? " and all after it" : ""));
            Disk disk;
            disk.FailCalls(call, losesPower ? Disk::kForever : call);
            const bool saved{disk.Save()};
            isFailing = disk.Calls() >= call;
            if (losesPower) {
                disk.RestorePower();
            } else {
                EXPECT_EQ(disk.FileCount(), 1U) << "a temporary file is left";
                EXPECT_TRUE(saved || call != 1) << "the lock is asked for once more";
            }
            EXPECT_EQ(disk.Bytes(kPath), saved ? kNew : kOld);
            EXPECT_TRUE(disk.Save());
            EXPECT_EQ(disk.Bytes(kPath), kNew);
            EXPECT_EQ(disk.FileCount(), 1U);
        }
    }
}

TEST(ProfileFile, WaitsASecondForAHeldFile) {
    Disk disk;
    disk.Hold(kPath, 10);
    EXPECT_EQ(ReadProfile(disk, kPath).result, IFileSystem::Status::Ok);
    EXPECT_GE(disk.PausedMilliseconds(), 1000U);
    disk.Hold(kPath + L".tmp", 10);
    EXPECT_TRUE(LockAndEditProfile(disk, kPath, [&](CPrivateProfile& profile) {
        SetNew(profile);
        disk.Hold(kPath, 10);
    }));
    EXPECT_EQ(disk.Bytes(kPath), kNew);
}

TEST(ProfileFile, SavesOnlyWithTheLock) {
    Disk disk;
    std::unique_ptr<IFileSystem::IFile> lock;
    const auto fail = [&](CPrivateProfile& profile) {
        EXPECT_EQ(disk.CreateLock(kPath + L".lock", lock), IFileSystem::Status::Busy);
        SetNew(profile);
        throw std::runtime_error("edit");
    };
    EXPECT_THROW((void)LockAndEditProfile(disk, kPath, fail), std::runtime_error);
    ASSERT_EQ(disk.CreateLock(kPath + L".lock", lock), IFileSystem::Status::Ok);
    EXPECT_FALSE(disk.Save());
    EXPECT_GE(disk.PausedMilliseconds(), 5000U);
    EXPECT_EQ(disk.Bytes(kPath), kOld);
    lock.reset();
    EXPECT_TRUE(disk.Save());
}

TEST(ProfileFile, ALinkStaysAndItsTargetIsSaved) {
    const std::wstring alias = L"D:\\link.ini";
    Disk disk;
    disk.PutLink(alias, kPath);
    std::unique_ptr<IFileSystem::IFile> lock;
    EXPECT_TRUE(LockAndEditProfile(disk, alias, [&](CPrivateProfile& profile) {
        EXPECT_EQ(disk.CreateLock(kPath + L".lock", lock), IFileSystem::Status::Busy) << "one lock for both";
        SetNew(profile);
    }));
    EXPECT_TRUE(disk.IsLink(alias));
    EXPECT_EQ(disk.Bytes(kPath), kNew);
    EXPECT_EQ(disk.FileCount(), 1U);

    disk.Remove(kPath);
    EXPECT_FALSE(LockAndEditProfile(disk, alias, SetNew)) << "the target may be back tomorrow";
    EXPECT_TRUE(disk.IsLink(alias));
    EXPECT_EQ(disk.FileCount(), 0U);
}

TEST(ProfileFile, CreatesAMissingFileOnlyForAChange) {
    CFakeFileSystem files;
    EXPECT_TRUE(LockAndEditProfile(files, kPath, [](CPrivateProfile&) {}));
    EXPECT_TRUE(LockAndEditProfile(files, kPath, SetNew));
    EXPECT_TRUE(LockAndEditProfile(files, kPath, SetNew));
    EXPECT_EQ(files.Replacements(), 1);
    EXPECT_FALSE(LockAndEditProfile(files, L"", SetNew));
}

TEST(ProfileFile, FailuresWithoutACodeHaveTheirOwnText) {
    using Status = FileResult::Status;
    CFakeFileSystem files;
    const std::pair<Status, std::wstring> cases[] = {
        {Status::Missing, L"The file does not exist: l.ini"},
        {Status::Busy, L"The file is in use by another program: l.ini"},
        {Status::ReadOnly, L"The file is read-only: l.ini"},
        {Status::Failed, L"The file cannot be used: l.ini"}};
    for (const auto& [status, text] : cases) {
        EXPECT_EQ(DescribeFailure(files, {.status = status, .path = L"l.ini"}), text);
    }
}

}  // namespace
