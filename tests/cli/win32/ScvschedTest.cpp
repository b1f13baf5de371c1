// The console program as its user starts it.
#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <thread>
#include <vector>

#include "cli/report/Refusal.h"
#include "core/launch/ListKeeper.h"
#include "core/list/ProfileFile.h"
#include "core/platform/win32/WindowsFileSystem.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryFolder.h"
#include "util/Utf8.h"
#include "util/win32/Handle.h"
#include "util/win32/ModulePath.h"

namespace {

namespace fs = std::filesystem;

const std::wstring kScvsched = L"../cli/scvsched.exe";

class Scvsched : public testing::Test {
protected:
    [[nodiscard]] ChildResult Run(const std::wstring& words) const {
        return RunChild(kScvsched, L"--list \"" + m_list + L"\" " + words);
    }

    const TemporaryFolder m_folder;
    // A name that no console code page holds.
    const std::wstring m_list =
        m_folder.File(L"\u4fa1\u683c \u0426\u0435\u043d\u044b.ini",
                      "[SCVShchedulerTaskList]\nTaskCount=1\n[SCVShchedulerTask1]\n"
                      "CommandLine='\"C:\\none\\a.scvpr\" -s'\nStartTime=1711850400\n");
};

TEST_F(Scvsched, ErrorsAreOneLineOnStandardError) {
    EXPECT_EQ(RunChild(kScvsched, L"--version").out, "scvsched " + ToUtf8(SCV_VERSION) + "\n");
    const ChildResult next = Run(L"--json next --at 1711850000 C:\\none\\A.scvpr");
    EXPECT_EQ(next.exitCode, kFine) << next.err;
    const auto json = nlohmann::json::parse(next.out);
    EXPECT_EQ(json["tasks"][0]["runs"], (std::vector<int>{1711850400}));
    EXPECT_NE(json["list"].get<std::string>().find("\xD0\xA6\xD0\xB5\xD0\xBD\xD1\x8B.ini"),
              std::string::npos);
    EXPECT_EQ(next.err, "");
    const std::pair<ChildResult, unsigned> wrong[] = {
        {Run(L"lost"), kUsage}, {RunChild(kScvsched, L"--list C:\\none.ini list"), kNoList}};
    for (const auto& [result, exitCode] : wrong) {
        EXPECT_EQ(result.exitCode, exitCode) << result.err;
        EXPECT_GT(result.err.size(), 10U);
        EXPECT_EQ(result.err.find('\n'), result.err.size() - 1) << result.err;
    }
}

TEST_F(Scvsched, PassRecordsItsLaunch) {
    const ChildResult first = Run(L"pass");
    EXPECT_EQ(first.exitCode, kFindings) << "the project is missing";
    EXPECT_NE(first.out.find("Failure: File does not exist"), std::string::npos) << first.out << first.err;
    const ChildResult second = Run(L"pass");
    EXPECT_EQ(second.exitCode, kFine) << second.err;
    EXPECT_EQ(second.out, "");
}

TEST_F(Scvsched, NamesOfAnyLanguageGoThroughAPipe) {
    ASSERT_EQ(Run(L"add \"\u4fa1 \u0426.scvpr\" --add-urls \u00e4.csv").exitCode, kFine);
    const std::wstring other = m_folder.Path(L"\u00e9.ini");
    const std::wstring program = (fs::path(GetModulePath()).parent_path() / kScvsched).make_preferred();
    const std::wstring call = L"\"" + program + L"\" --list ";
    const ChildResult piped =
        RunChild(L"C:\\windows\\system32\\cmd.exe",
                 L"/s /c \"" + call + L'"' + m_list + L"\" export | " + call + L'"' + other + L"\" import\"");
    EXPECT_NE(piped.out.find("\xE4\xBE\xA1 \xD0\xA6.scvpr  once, on "), std::string::npos)
        << piped.out << piped.err;
    const std::string exported = Run(L"export").out;
    EXPECT_NE(exported.find("\xC3\xA4.csv"), std::string::npos) << exported;
    EXPECT_EQ(RunChild(kScvsched, L"--list \"" + other + L"\" export").out, exported);
}

TEST_F(Scvsched, EditsMadeAtOnceAreAllKept) {
    std::vector<std::thread> consoles;
    for (const wchar_t console : {L'1', L'2', L'3', L'4'}) {
        consoles.emplace_back([this, console] {
            for (const wchar_t* name : {L"a", L"b", L"c"}) {
                EXPECT_EQ(Run(std::wstring(L"add C:\\") + name + console + L".scvpr").exitCode, kFine);
            }
        });
    }
    for (std::thread& console : consoles) {
        console.join();
    }
    EXPECT_EQ(nlohmann::json::parse(Run(L"export").out)["tasks"].size(), 1U + 3U * consoles.size());
}

// Ends with its object, as a program that is killed.
class Watch {
public:
    explicit Watch(const std::wstring& list)
        : m_process(StartChild(
              L"\"" + (fs::path(GetModulePath()).parent_path() / kScvsched).make_preferred().wstring() +
                  L"\" --list \"" + list + L"\" watch",
              CREATE_NO_WINDOW)) {
        CWindowsFileSystem files;
        while (!CListKeeper::IsKept(files, list, CListKeeper::Kind::Watch) && IsRunning()) {
        }
    }
    Watch(const Watch&) = delete;
    Watch& operator=(const Watch&) = delete;
    // Waits a moment.
    [[nodiscard]] bool IsRunning() const { return WaitForSingleObject(m_process.Get(), 1) == WAIT_TIMEOUT; }
    ~Watch() {
        TerminateProcess(m_process.Get(), 0);
        WaitForSingleObject(m_process.Get(), INFINITE);
    }

private:
    CKernelHandle m_process;
};

TEST_F(Scvsched, OthersRespectWhoKeepsAList) {
    const std::wstring remove = L"remove C:\\none\\a.scvpr";
    const auto expectKept = [&](const char* who) {
        for (const std::wstring& words : {std::wstring(L"pass"), std::wstring(L"watch"), remove}) {
            const ChildResult refused = Run(words);
            EXPECT_EQ(refused.exitCode, kFindings) << ToUtf8(words);
            EXPECT_NE(refused.err.find(who), std::string::npos) << refused.err;
            EXPECT_EQ(refused.out, "") << "the due task was not launched";
        }
        EXPECT_EQ(Run(L"list").exitCode, kFine) << who;
        const ChildResult other =
            RunChild(kScvsched, L"--list \"" + m_folder.Path(L"other.ini") + L"\" add C:\\none\\" +
                                    FromUtf8(who).substr(0, 1) + L".scvpr");
        EXPECT_EQ(other.exitCode, kFine) << other.err;
    };
    {
        CWindowsFileSystem files;
        CListKeeper window(files, m_list, CListKeeper::Kind::Window);
        EXPECT_TRUE(window.TryKeep());
        expectKept("window program keeps");
    }
    {
        const Watch watch(m_list);
        expectKept("another scvsched watches");
    }
    EXPECT_EQ(Run(remove).exitCode, kFine) << "its process was killed";
}

TEST_F(Scvsched, WatchFollowsAReplacedList) {
    ASSERT_EQ(Run(L"disable *").exitCode, kFine);
    const Watch watch(m_list);
    CWindowsFileSystem files;
    std::string text;
    ASSERT_TRUE(files.Read(m_list, text));
    text.replace(text.find("Enable=0"), 8, "Enable=1");
    ASSERT_TRUE(ReplaceFileBytes(files, m_list, text));
    while (watch.IsRunning() && text.find("File does not exist") == std::string::npos) {
        (void)files.Read(m_list, text);
    }
    EXPECT_TRUE(watch.IsRunning()) << "it has launched what was enabled";
}

}  // namespace
