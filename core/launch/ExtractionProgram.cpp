#include "core/launch/ExtractionProgram.h"

#include "core/platform/Shell.h"
#include "util/CaseFold.h"
#include "util/Path.h"

namespace {

// The registry key of the program for an extension; empty for an extension of neither program.
std::wstring ProgramKey(std::wstring_view extension) {
    if (EqualNoCase(extension, L"scvpr")) {
        return kScrivaneKey;
    }
    if (EqualNoCase(extension, L"oslpr")) {
        return kOstrelKey;
    }
    return {};
}

}  // namespace

bool IsProjectExtension(std::wstring_view extension) {
    return !ProgramKey(extension).empty();
}

std::wstring FindExtractionProgram(IShell& shell, const std::wstring& project) {
    const std::wstring extension = GetFileExtension(project);
    std::wstring program = shell.RegisteredProgram(ProgramKey(extension));
    return program.empty() ? shell.AssociatedProgram(extension) : program;
}
