#include <windows.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "bench/Judge.h"
#include "framework/TextFile.h"
#include "script/ActiveScriptController.h"
#include "script/ResourceScriptTexts.h"
#include "script/ScriptDlg.h"
#include "script/ScriptGenerator.h"
#include "script/ScriptLanguages.h"
#include "script/resource.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestApp.h"
#include "util/ComApartment.h"

// What the longest script, the two costliest helpers of the templates and a large text file cost. Exit 1 when
// a bound is missed. Needs a display.

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
        if (!dialog.Create(IDD_SCRIPT)) {
            std::fputs("The editor could not be made.\n", stderr);
            std::exit(2);
        }
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

// Extract_Tags_By_Attribute and Extract_Tags_Using_CSS_Selector, by their numbers, on 100 KB of a page and of
// nothing but nested elements, which only has its figure: 33,000 elements are no page.
bool JudgeHelpers() {
    const CComApartment apartment;
    const CResourceScriptTexts texts;
    const CScriptGenerator generator(texts);
    std::wstring page;
    std::wstring nested;
    while (page.size() < 100'000) {
        page +=
            L"<div class=\"item\"><a href='/p?a=1&amp;b=2'>Name &lt;1&gt;</a><br>\r\n<p>A line of "
            L"text</p></div>\r\n";
        nested +=
            L"<a><a><a><a><a><a><a><a><a><a><a><a><a><a><a><a><a><a><a><a><a><a><a><a><a><a><a><a><a><a><a>";
    }
    bool areMet = true;
    for (const auto& [number, param] : {std::pair(61335, L"div"), std::pair(61336, L"div.item > a")}) {
        CScriptGenerator::stTemplate record;
        record.number = number;
        record.params.Add(param);
        const std::wstring script = generator.InstantiateTemplate(kVBScript, &record, L"Main");
        const auto run = [&](const std::wstring& text) {
            CActiveScriptController controller;
            CStringArray arguments;
            arguments.Add(text);
            arguments.Add(L"");
            CStringArray results;
            if (controller.Create(kVBScript) != 1 || controller.AddCode(script) != 1 ||
                controller.Run(L"Main", &arguments, results) != 1) {
                std::abort();
            }
        };
        areMet &= Judge(number == 61335 ? "ms of Extract_Tags_By_Attribute for a page of 100 KB"
                                        : "ms of the CSS selector for a page of 100 KB",
                        Best([&] { run(page); }), 1000);
        std::printf("       the same for 33,000 nested elements: %.0f ms\n", Best([&] { run(nested); }, 2));
    }
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
    bool areMet = JudgeEditor();
    areMet &= JudgeHelpers();
    return JudgeTextFile() && areMet ? 0 : 1;
}
