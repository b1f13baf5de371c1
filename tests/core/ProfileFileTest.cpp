#include "core/ProfileFile.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "tests/support/FakeFileSystem.h"

namespace {

using Status = IFileSystem::Status;

const std::wstring kPath = L"C:\\lists\\tasks.ini";
const std::string kOld = "; mine\r\n[a]\r\nk=old\r\n";
const std::string kNew = "; mine\r\n[a]\r\nk=new\r\n";

void SetNew(CPrivateProfile& profile) {
    const CPrivateProfile::Entry entry{L"k", L"new"};
    profile.SetStrings(L"a", {&entry, 1});
}

// A disk with the old list on it.
struct Disk {
    Disk() { files.Put(kPath, kOld); }
    bool Save() { return EditProfile(files, kPath, SetNew); }

    CFakeFileSystem files;
};

class ProfileFile : public testing::Test, protected Disk {};

// Whatever went wrong, the list is whole, and the next save works and leaves nothing but the list.
TEST_F(ProfileFile, EachCallMayFailOrBeTheLastOneBeforeThePowerGoes) {
    EXPECT_TRUE(Save());
    const int calls = files.Calls();
    ASSERT_GE(calls, 7);
    for (const char* what : {"fails", "fails like all after it", "loses power", "works and loses power"}) {
        for (int call = 1; call <= calls; ++call) {
            SCOPED_TRACE(testing::Message() << "call " << call << ' ' << what);
            Disk disk;
            const std::string_view kind = what;
            const bool failsOnce = kind == "fails";
            if (kind.ends_with("power")) {
                disk.files.CutPowerAt(call, kind.starts_with("works"));
            } else {
                disk.files.FailCalls(call, failsOnce ? call : CFakeFileSystem::kForever);
            }
            const bool saved = disk.Save();
            disk.files.RestorePower();
            EXPECT_TRUE(disk.files.Bytes(kPath) == kNew || (!saved && disk.files.Bytes(kPath) == kOld))
                << disk.files.Bytes(kPath);
            EXPECT_TRUE(!failsOnce || disk.files.FileCount() == 1U) << "a temporary file is left";
            EXPECT_TRUE(!failsOnce || saved || call != 1) << "the lock is asked for once more";
            disk.files.FailCalls(CFakeFileSystem::kForever, CFakeFileSystem::kForever);
            EXPECT_TRUE(disk.Save());
            EXPECT_EQ(disk.files.Bytes(kPath), kNew);
            EXPECT_EQ(disk.files.FileCount(), 1U);
        }
    }
}

TEST_F(ProfileFile, NothingIsWrittenOverWhatCannotBeReplaced) {
    const struct {
        const char* what;
        void (*arrange)(CFakeFileSystem& files);
        Status read;
    } cases[] = {
        {"held", [](CFakeFileSystem& f) { f.Hold(kPath, CFakeFileSystem::kForever); }, Status::Busy},
        {"read-only", [](CFakeFileSystem& f) { f.SetReadOnly(kPath); }, Status::Ok},
        {"full disk", [](CFakeFileSystem& f) { f.SetCapacity(kOld.size() + 5); }, Status::Ok},
        {"folder", [](CFakeFileSystem& f) { f.PutFolder(kPath); }, Status::Failed},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        Disk disk;
        c.arrange(disk.files);
        EXPECT_EQ(ReadProfile(disk.files, kPath).status, c.read);
        EXPECT_FALSE(disk.Save());
        EXPECT_EQ(disk.files.Bytes(kPath), kOld);
        EXPECT_EQ(disk.files.FileCount(), 1U);
    }
}

TEST_F(ProfileFile, AHoldOfASecondIsOutlasted) {
    files.Hold(kPath, 10);
    EXPECT_EQ(ReadProfile(files, kPath).status, Status::Ok);
    EXPECT_GE(files.PausedMilliseconds(), 1000U);
    files.Hold(kPath + L".tmp", 10);
    EXPECT_TRUE(EditProfile(files, kPath, [&](CPrivateProfile& profile) {
        SetNew(profile);
        files.Hold(kPath, 10);
    }));
    EXPECT_EQ(files.Bytes(kPath), kNew);
}

TEST_F(ProfileFile, WhoeverHoldsTheLockSavesAlone) {
    std::unique_ptr<IFileSystem::IFile> lock;
    EXPECT_THROW((void)EditProfile(files, kPath,
                                   [&](CPrivateProfile& profile) {
                                       EXPECT_EQ(files.CreateLock(kPath + L".lock", lock), Status::Busy);
                                       SetNew(profile);
                                       throw std::runtime_error("edit");
                                   }),
                 std::runtime_error);
    ASSERT_EQ(files.CreateLock(kPath + L".lock", lock), Status::Ok);
    EXPECT_FALSE(Save());
    EXPECT_GE(files.PausedMilliseconds(), 5000U);
    EXPECT_EQ(files.Bytes(kPath), kOld);
    lock.reset();
    EXPECT_TRUE(Save());
}

TEST_F(ProfileFile, AMissingFileIsMadeAndAnUnchangedOneIsLeftAlone) {
    files.Remove(kPath);
    EXPECT_EQ(ReadProfile(files, kPath).status, Status::Missing);
    EXPECT_TRUE(EditProfile(files, kPath, [](CPrivateProfile&) {}));
    EXPECT_TRUE(files.Has(kPath));
    EXPECT_TRUE(Save());
    EXPECT_EQ(files.Replacements(), 2);
    EXPECT_TRUE(Save());
    EXPECT_EQ(files.Replacements(), 2);
    EXPECT_FALSE(EditProfile(files, L"", SetNew));
    EXPECT_EQ(files.FileCount(), 1U);
}

}  // namespace
