#include <windows.h>

#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <vector>

#include "bench/Judge.h"
#include "framework/TextFile.h"
#include "script/ScriptGenerator.h"
#include "script/ScriptLanguages.h"
#include "script/resource.h"
#include "script/win32/ActiveScriptController.h"
#include "script/win32/ResourceScriptTexts.h"
#include "script/win32/ScriptDlg.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/TestApp.h"
#include "util/win32/ComApartment.h"

// Measures the longest script, the helpers of the templates and a large text file. Exit code 1 when a bound
// is missed. Needs a display.

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
    // A wrong result could be fast because nothing was done.
    areMet &= dialog.GetDlgItemText(IDC_SCRIPT_TEST_RESULT) == L"x" &&
              dialog.GetDlgItemText(IDC_SCRIPT_TEXT) == script;
    dialog.DestroyWindow();
    return areMet;
}

// The result of a template's script for a text.
std::wstring RunTemplate(std::int32_t number, const std::vector<const wchar_t*>& params,
                         const std::wstring& text) {
    const CResourceScriptTexts texts;
    const std::wstring language = number < 62000 || number == 62101 ? kVBScript : kJScript;
    CScriptGenerator::stTemplate record;
    record.number = number;
    for (const wchar_t* param : params) {
        record.params.Add(param);
    }
    const std::wstring script = CScriptGenerator(texts).InstantiateTemplate(language, &record, kMainFunction);
    CActiveScriptController controller;
    CStringArray arguments;
    arguments.Add(text);
    arguments.Add(L"");
    CStringArray results;
    if (controller.Create(language) != 1 || controller.AddCode(script) != 1 ||
        controller.Run(kMainFunction, &arguments, results) != 1) {
        std::abort();
    }
    return results[0];
}

// Measures Extract_Tags_By_Attribute and Extract_Tags_Using_CSS_Selector on a page of 100 KB and on 33,000
// nested elements around the one that is selected.
bool JudgeHelpers() {
    const CComApartment apartment;
    std::wstring page;
    while (page.size() < 100'000) {
        page +=
            L"<div class=\"item\"><a href='/p?a=1&amp;b=2'>Name &lt;1&gt;</a><br>\r\n<p>A line of "
            L"text</p></div>\r\n";
    }
    std::wstring nested;
    while (nested.size() < 99'000) {
        nested += L"<b>";
    }
    nested += L"<i class=item>";
    const auto judge = [](const char* what, std::int32_t number, const std::vector<const wchar_t*>& params,
                          const std::wstring& text, double limit) {
        return Judge(what, Best([&] { RunTemplate(number, params, text); }), limit);
    };
    bool areMet = judge("ms of Extract_Tags_By_Attribute for a page of 100 KB", 61335, {L"div"}, page, 1000);
    areMet &= judge("ms of the CSS selector for a page of 100 KB", 61336, {L"div.item > a"}, page, 1000);
    areMet &= judge("ms of the CSS selector in 33,000 nested elements", 61336, {L".item"}, nested, 500);
    return areMet;
}

// Texts of equal parts: a page, and texts that make a careless search start over at each character or visit
// all surrounding elements for each element.
struct LongText {
    const wchar_t* begin;
    const wchar_t* repeated;
    const wchar_t* end;

    [[nodiscard]] std::wstring OfLength(std::size_t length) const {
        std::wstring text = begin;
        while (text.size() < length) {
            text += repeated;
        }
        return text + end;
    }
};
using LongTexts = std::vector<LongText>;
constexpr wchar_t kUnit[] =
    L"<div class=\"item n1\"><a HREF='/p?a=1&amp;b=%41' title=\"x>y\">Name &lt;1&gt;</a><br>\r\n<p>Mail "
    L"joe@ex.com, call +1 555-123-4567</p><select><option>a<option selected>b</select></div>\r\n";
const LongTexts kPlain{
    {L"", kUnit, L""}, {L"", L"a", L""}, {L"", L"1", L""}, {L"", L" ", L"x"}, {L"", L"\r\n", L""}};
const LongTexts kAddresses{{L"", kUnit, L""}, {L"", L"a", L""}, {L"", L"a@", L""}, {L"a@", L"b.", L""}};
const LongTexts kEscapes{{L"", kUnit, L""}, {L"", L"%41", L""}, {L"", L"&amp;", L""}, {L"", L"&#x", L""}};
const LongTexts kMarkup{{L"", kUnit, L""},
                        {L"", L"<", L""},
                        {L"", L"<a", L""},
                        {L"", L"<a x=\"", L""},
                        {L"", L"<b c=\"<b c='", L""},
                        {L"", L"<!--", L""},
                        {L"", L"<script>", L""},
                        {L"<a ", L"b='c' ", L">"},
                        {L"<", L"a", L""},
                        {L"<a ", L"=", L""},
                        {L"", L"<a>", L""},
                        {L"", L"<li></b>", L""},
                        {L"", L"<td><b></td></i>", L"</b></td></table>"},
                        {L"", L"<div class='item n1'><a href='b='>A line of some length</a>", L"</div>"}};

struct Helper {
    std::vector<std::int32_t> numbers;
    std::vector<const wchar_t*> params;
    const LongTexts& texts;
};
// All but Download_URL, whose time is that of the network.
const Helper kHelpers[] = {{{61319, 62002}, {L"zz", L"1"}, kPlain},
                           {{61320, 62003}, {L"a", L"zz", L"1"}, kPlain},
                           {{61321, 62004}, {L"zz", L"0"}, kPlain},
                           {{61323, 62005}, {L"a", L"bb"}, kPlain},
                           {{61325, 62006}, {L"a", L"", L"1"}, kPlain},
                           {{61328, 62008}, {L"\\w\\w", L"0"}, kPlain},
                           {{61329}, {L"a"}, kPlain},
                           {{61329, 62007}, {}, kPlain},
                           {{61332, 62009}, {L"a", L"bb"}, kPlain},
                           {{61326, 62011}, {}, kPlain},
                           {{61324, 62010}, {}, kAddresses},
                           {{61333}, {}, kEscapes},
                           {{62101, 62102}, {}, kEscapes},
                           {{61322, 62013}, {}, kMarkup},
                           {{61334}, {}, kMarkup},
                           {{61330}, {}, kMarkup},
                           {{61327}, {L"href", L"0"}, kMarkup},
                           {{61335}, {L"div", L"class", L"item n1"}, kMarkup},
                           {{61336}, {L"div.item > a[href*='b='], p b"}, kMarkup}};

// By how much the time grows from a text to one of four times its length, divided by the growth of the
// text and of what comes out. Prints what is too much.
double Growth(std::int32_t number, const std::vector<const wchar_t*>& params, const LongText& text) {
    double times[2];
    double sizes[2];
    for (const std::size_t i : {0U, 1U}) {
        const std::wstring given = text.OfLength(i == 0 ? 12'500 : 50'000);
        const auto run = [&] { sizes[i] = static_cast<double>(RunTemplate(number, params, given).size()); };
        times[i] = Best(run, 2);
        sizes[i] += static_cast<double>(given.size());
    }
    // What takes less than a tenth of a second says nothing.
    const double growth = times[1] / std::max(times[0], 100.0) * sizes[0] / sizes[1];
    if (growth > 2) {
        std::printf("       template %d, \"%ls\": %.1f times\n", number, text.repeated, growth);
    }
    return growth;
}

// Runs every helper on a text and on one four times as long. Its time may grow linearly with the sizes of
// text and result, not quadratically. The worst growth is compared with the bound.
bool JudgeGrowth() {
    const CComApartment apartment;
    double worst = 0;
    for (const Helper& helper : kHelpers) {
        for (const std::int32_t number : helper.numbers) {
            for (const LongText& text : helper.texts) {
                worst = std::max(worst, Growth(number, helper.params, text));
            }
        }
    }
    return Judge("times what is due to a text four times as long, every helper", worst, 2);
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
    areMet &= JudgeGrowth();
    return JudgeTextFile() && areMet ? 0 : 1;
}
