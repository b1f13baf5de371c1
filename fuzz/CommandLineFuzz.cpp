#include <algorithm>
#include <initializer_list>

#include "core/task/SCVShchedulerTask.h"
#include "fuzz/FuzzInput.h"
#include "util/WhiteSpace.h"

namespace {

// A path that looks like a switch would turn that switch on at the next reading.
bool LooksLikeASwitch(const std::wstring& path) {
    return path.starts_with(L'-') || path.starts_with(L'/');
}

// Whether the task's texts survive writing and reading. The format has no escapes: quotes do not survive, nor
// do commas, quotes or blanks at the ends of a field in the list of the input element.
bool Survives(const CSCVShchedulerTask& task) {
    const auto hasQuote = [](const std::wstring& text) { return text.find(L'"') != std::wstring::npos; };
    const auto isListField = [](const std::wstring& text) {
        return text == Trim(text) && text.find_first_of(L",'") == std::wstring::npos;
    };
    return !LooksLikeASwitch(task.m_strProjectPath) &&
           std::ranges::none_of(
               std::initializer_list<std::wstring>{
                   task.m_strProjectPath, task.m_strUrlsFile, task.m_strScriptFile, task.m_strInputValuesFile,
                   task.m_strInputElementId, task.m_strInputElementName, task.m_strExportFile,
                   task.m_strFailedUrlsFile, task.m_strFilterArgument},
               hasQuote) &&
           std::ranges::all_of(
               std::initializer_list<std::wstring>{task.m_strInputValuesFile, task.m_strInputElementId,
                                                   task.m_strInputElementName},
               isListField);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CSCVShchedulerTask read;
    Require(read.ParseCommandLine(TextOf(data, size)) == 1);
    const std::wstring built = read.BuildCommandLine();

    CSCVShchedulerTask again;
    Require(again.ParseCommandLine(built) == 1);
    if (Survives(read)) {
        Require(again.m_strProjectPath == read.m_strProjectPath);
        Require(again.BuildCommandLine() == built);
    }
    return 0;
}
