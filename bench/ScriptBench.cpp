#include <windows.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "bench/Judge.h"
#include "framework/TextFile.h"
#include "script/ScriptDlg.h"
#include "script/resource.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestApp.h"
#include "util/ComApartment.h"

// What the longest script and a large text file cost. Exit 1 when a bound is missed. Needs a display.

namespace {

std::wstring LongestScript() {
    std::wstring script = L"function Main ( text, url ) { return text; }\r\n";
    while (script.size() < CScriptDlg::kMaxScriptLength) {
        script += L"// sixteen more.\r\n";
    }
    script.resize(CScriptDlg::kMaxScriptLength);
    return script;
}

bool JudgeEditor() {
    const TestApp app;
    const CComApartment apartment;
    const std::wstring script = LongestScript();
    CScriptDlg dialog;
    const auto open = [&] {
        dialog.DestroyWindow();
        dialog.m_strScript = script;
        dialog.Create(IDD_SCRIPT);
    };
    bool areMet = Judge("ms to open a script of 32,768 characters", Best(open), 500);
    const CEdit box(dialog.GetDlgItem(IDC_SCRIPT_TEXT));
    const auto change = [&] {
        for (DWORD i = 0; i < 50; ++i) {
            box.SetSel(i * 600, i * 600);
            box.SendMessage(WM_KEYDOWN, VK_DELETE);
            box.ReplaceSel(script.substr(i * 600, 1), true);
        }
    };
    areMet &= Judge("ms for a change in it", Best(change) / 100, 50);
    dialog.SetDlgItemText(IDC_SCRIPT_TEST_TEXT, L"x");
    const auto run = [&] { SendMessageW(dialog.GetDlgItem(IDC_SCRIPT_TEST_RUN), BM_CLICK, 0, 0); };
    areMet &= Judge("ms to run it", Best(run), 500);
    // Otherwise it would have been quick because it did nothing.
    areMet &= dialog.GetDlgItemText(IDC_SCRIPT_TEST_RESULT) == L"x" &&
              dialog.GetDlgItemText(IDC_SCRIPT_TEXT) == script;
    dialog.DestroyWindow();
    return areMet;
}

bool JudgeTextFile() {
    const TemporaryFolder folder;
    const std::wstring path = folder.Path(L"large.txt");
    std::wstring text;
    while (text.size() < 20'000'000) {
        text += L"A line of text, with \u00e4 and \u20ac.\r\n";
    }
    const double save = Best([&] { SaveTextFile(text, path, false); });
    const double read = Best([&] {
        if (ReadTextFile(path) != text) {
            std::abort();
        }
    });
    const double plain = Best([&] {
        std::ifstream file(path.c_str(), std::ios::binary);
        const std::string bytes(std::istreambuf_iterator<char>(file), {});
        std::ofstream(folder.Path(L"copy.txt").c_str(), std::ios::binary) << bytes;
    });
    return Judge("times a plain copy to read and save 20 million characters", (save + read) / plain, 5);
}

}  // namespace

int wmain() {
    const bool areMet = JudgeEditor();
    return JudgeTextFile() && areMet ? 0 : 1;
}
