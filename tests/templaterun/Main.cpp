// templaterun INPUT OUTPUT: runs script templates on many texts in one process, for tests that compare what
// comes out with other programs.
//
// Both files are UTF-8. INPUT consists of records, each followed by U+001E; a record is, separated by U+001F,
// a template's number, a text and up to three parameters. In place of the number it can have "VBScript" or
// "JScript", and then the text for a script of that language, which is the next field. OUTPUT gets for each
// record the run's processor time in
// milliseconds, U+001F, what Main returned (or "no result: " and the message that was
// shown) and U+001E.
#include <windows.h>

#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "framework/MessageBox.h"
#include "script/ScriptGenerator.h"
#include "script/ScriptLanguages.h"
#include "script/win32/ActiveScriptController.h"
#include "script/win32/ResourceScriptTexts.h"
#include "util/Utf8.h"
#include "util/win32/ComApartment.h"

namespace {

using Fields = std::vector<std::wstring>;

Fields Split(const std::wstring& text, wchar_t separator) {
    Fields fields;
    std::size_t begin = 0;
    for (std::size_t end = 0; (end = text.find(separator, begin)) != std::wstring::npos; begin = end + 1) {
        fields.push_back(text.substr(begin, end - begin));
    }
    fields.push_back(text.substr(begin));
    return fields;
}

struct Script {
    std::wstring language;
    std::wstring text;
};

Script ScriptOf(const Fields& fields) {
    if (fields[0] == kVBScript || fields[0] == kJScript) {
        return {fields[0], fields.at(2)};
    }
    const CResourceScriptTexts texts;
    CScriptGenerator::stTemplate record;
    record.number = std::stoi(fields[0]);
    for (std::size_t index = 2; index < fields.size(); ++index) {
        record.params.Add(fields[index]);
    }
    const std::wstring language = record.number < 62000 || record.number == 62101 ? kVBScript : kJScript;
    return {language, CScriptGenerator(texts).InstantiateTemplate(language, &record, kMainFunction)};
}

std::wstring Run(const Script& script, const std::wstring& text, std::wstring& shown) {
    CActiveScriptController controller;
    CStringArray arguments;
    arguments.Add(text);
    arguments.Add(L"http://host/");
    CStringArray results;
    if (controller.Create(script.language) != 1 || controller.AddCode(script.text) != 1 ||
        controller.Run(kMainFunction, &arguments, results) != 1 || results.GetSize() != 1) {
        return L"no result: " + shown;
    }
    return results[0];
}

// Of this thread, in milliseconds: what other programs take does not count.
double ProcessorTime() {
    constexpr double hundredNanoseconds = 10'000;
    FILETIME created;
    FILETIME ended;
    ULARGE_INTEGER kernel;
    ULARGE_INTEGER user;
    FILETIME kernelTime;
    FILETIME userTime;
    GetThreadTimes(GetCurrentThread(), &created, &ended, &kernelTime, &userTime);
    kernel.LowPart = kernelTime.dwLowDateTime;
    kernel.HighPart = kernelTime.dwHighDateTime;
    user.LowPart = userTime.dwLowDateTime;
    user.HighPart = userTime.dwHighDateTime;
    return static_cast<double>(kernel.QuadPart + user.QuadPart) / hundredNanoseconds;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count != 3) {
        std::cerr << "templaterun INPUT OUTPUT\n";
        return 2;
    }
    const CComApartment apartment;
    std::wstring shown;
    AfxSetMessageBox([&](const std::wstring& text, UINT) {
        shown = text;
        return IDOK;
    });
    std::ifstream input(arguments[1], std::ios::binary);
    std::ofstream output(arguments[2], std::ios::binary);
    Fields records = Split(FromUtf8(std::string(std::istreambuf_iterator<char>(input), {})), L'\x1e');
    records.pop_back();
    for (const std::wstring& record : records) {
        const Fields fields = Split(record, L'\x1f');
        const Script script = ScriptOf(fields);
        shown.clear();
        const double begin = ProcessorTime();
        const std::wstring result = Run(script, fields.at(1), shown);
        const double taken = ProcessorTime() - begin;
        output << taken << '\x1f' << ToUtf8(result) << '\x1e';
    }
    std::cout << records.size() << " records\n";
    return output ? 0 : 1;
}
