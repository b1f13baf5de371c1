// The console program as its user starts it.
#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <thread>
#include <vector>

#include "cli/report/Refusal.h"
#include "core/launch/ListKeeper.h"
#include "core/platform/win32/WindowsFileSystem.h"
#include "tests/support/ChildProcess.h"
#include "tests/support/TemporaryFolder.h"
#include "util/Utf8.h"
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
    const ChildResult wrong = Run(L"lost");
    EXPECT_EQ(wrong.exitCode, kUsage);
    EXPECT_EQ(wrong.err.find('\n'), wrong.err.size() - 1) << wrong.err;
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

TEST_F(Scvsched, OthersRespectTheWindow) {
    CWindowsFileSystem files;
    CListKeeper window(files, m_list, CListKeeper::Kind::Window);
    EXPECT_TRUE(window.TryKeep());
    for (const wchar_t* words : {L"pass", L"watch", L"remove C:\\none\\a.scvpr"}) {
        const ChildResult refused = Run(words);
        EXPECT_EQ(refused.exitCode, kFindings) << ToUtf8(words);
        EXPECT_NE(refused.err.find("window program keeps"), std::string::npos) << refused.err;
    }
    EXPECT_EQ(Run(L"list").exitCode, kFine);
}

}  // namespace
