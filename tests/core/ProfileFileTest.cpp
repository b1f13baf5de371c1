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

int CallsOfASave() {
    CFakeFileSystem files;
    files.Put(kPath, kOld);
    EXPECT_TRUE(EditProfile(files, kPath, SetNew));
    return files.Calls();
}

// Whatever went wrong before, the next save works and leaves nothing but the list.
void ExpectNextSaveWorks(CFakeFileSystem& files) {
    EXPECT_TRUE(EditProfile(files, kPath, SetNew));
    EXPECT_EQ(files.Bytes(kPath), kNew);
}

TEST(ProfileFile, EachCallMayFailOnceOrFromThenOn) {
    const int calls = CallsOfASave();
    ASSERT_GE(calls, 7);
    for (const bool forever : {false, true}) {
        for (int call = 1; call <= calls; ++call) {
            SCOPED_TRACE(testing::Message() << "call " << call << (forever ? " and all after it" : ""));
            CFakeFileSystem files;
            files.Put(kPath, kOld);
            files.FailCalls(call, forever ? CFakeFileSystem::kForever : call);
            const bool saved = EditProfile(files, kPath, SetNew);
            EXPECT_EQ(files.Bytes(kPath), saved ? kNew : kOld);
            if (!forever) {
                EXPECT_TRUE(saved || call != 1) << "the lock is asked for once more";
                EXPECT_EQ(files.FileCount(), 1U) << "a temporary file is left";
            }
            files.FailCalls(CFakeFileSystem::kForever, CFakeFileSystem::kForever);
            ExpectNextSaveWorks(files);
            EXPECT_EQ(files.FileCount(), 1U);
        }
    }
}

TEST(ProfileFile, PowerMayGoAtAnyCall) {
    const int calls = CallsOfASave();
    for (const bool takesEffect : {false, true}) {
        for (int call = 1; call <= calls; ++call) {
            SCOPED_TRACE(testing::Message()
                         << "call " << call << (takesEffect ? " after" : " before") << " its effect");
            CFakeFileSystem files;
            files.Put(kPath, kOld);
            files.CutPowerAt(call, takesEffect);
            (void)EditProfile(files, kPath, SetNew);
            files.RestorePower();
            EXPECT_TRUE(files.Bytes(kPath) == kOld || files.Bytes(kPath) == kNew) << files.Bytes(kPath);
            ExpectNextSaveWorks(files);
        }
    }
}

TEST(ProfileFile, NothingIsWrittenOverWhatCannotBeReplaced) {
    struct Case {
        const char* what;
        void (*arrange)(CFakeFileSystem& files);
        Status read;
    };
    const Case cases[] = {
        {"held for long", [](CFakeFileSystem& files) { files.Hold(kPath, CFakeFileSystem::kForever); },
         Status::Busy},
        {"read-only", [](CFakeFileSystem& files) { files.SetReadOnly(kPath); }, Status::Ok},
        {"full disk", [](CFakeFileSystem& files) { files.SetCapacity(kOld.size() + 5); }, Status::Ok},
        {"folder", [](CFakeFileSystem& files) { files.PutFolder(kPath); }, Status::Failed},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        CFakeFileSystem files;
        files.Put(kPath, kOld);
        c.arrange(files);
        EXPECT_EQ(ReadProfile(files, kPath).status, c.read);
        EXPECT_FALSE(EditProfile(files, kPath, SetNew));
        EXPECT_EQ(files.Bytes(kPath), kOld);
        EXPECT_EQ(files.FileCount(), 1U);
    }
}

TEST(ProfileFile, AHoldOfASecondIsOutlasted) {
    CFakeFileSystem files;
    files.Put(kPath, kOld);
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

TEST(ProfileFile, WhoeverHoldsTheLockSavesAlone) {
    CFakeFileSystem files;
    files.Put(kPath, kOld);
    std::unique_ptr<IFileSystem::IFile> lock;
    EXPECT_TRUE(EditProfile(files, kPath, [&](CPrivateProfile& profile) {
        EXPECT_EQ(files.CreateLock(kPath + L".lock", lock), Status::Busy);
        SetNew(profile);
    }));

    ASSERT_EQ(files.CreateLock(kPath + L".lock", lock), Status::Ok);
    files.Put(kPath, kOld);
    files.ResetCounters();
    EXPECT_FALSE(EditProfile(files, kPath, SetNew));
    EXPECT_GE(files.PausedMilliseconds(), 5000U);
    EXPECT_EQ(files.Bytes(kPath), kOld);
    lock.reset();

    EXPECT_THROW((void)EditProfile(files, kPath,
                                   [](CPrivateProfile& profile) {
                                       SetNew(profile);
                                       throw std::runtime_error("edit");
                                   }),
                 std::runtime_error);
    EXPECT_EQ(files.Bytes(kPath), kOld);
    ExpectNextSaveWorks(files);
}

TEST(ProfileFile, AMissingFileIsMadeAndAnUnchangedOneIsLeftAlone) {
    CFakeFileSystem files;
    EXPECT_EQ(ReadProfile(files, kPath).status, Status::Missing);
    EXPECT_TRUE(EditProfile(files, kPath, SetNew));
    EXPECT_EQ(files.Replacements(), 1);
    EXPECT_EQ(ReadProfile(files, kPath).profile->GetString(L"a", L"k"), L"new");

    EXPECT_TRUE(EditProfile(files, kPath, SetNew));
    EXPECT_EQ(files.Replacements(), 1);

    EXPECT_FALSE(EditProfile(files, L"", SetNew));
    EXPECT_EQ(files.FileCount(), 1U);
}

}  // namespace
