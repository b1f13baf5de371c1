#include <windows.h>

#include <shlobj.h>

#include <exception>
#include <iostream>

#include "cli/Arguments.h"
#include "cli/Commands.h"
#include "cli/Console.h"
#include "cli/ExitCode.h"
#include "cli/Instances.h"
#include "core/Clock.h"
#include "core/LocalTime.h"
#include "core/Shell.h"
#include "core/WindowsFileSystem.h"
#include "util/FileVersion.h"
#include "util/ProcessHardening.h"
#include "util/Utf8.h"

namespace {

std::wstring FullPath(const std::wstring& path) {
    const DWORD size = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    if (size == 0) {
        return path;
    }
    std::wstring full(size, L'\0');
    full.resize(GetFullPathNameW(path.c_str(), size, full.data(), nullptr));
    return full;
}

// The list that the window program uses.
std::wstring DefaultList() {
    wchar_t folder[MAX_PATH] = L"";
    if (FAILED(SHGetFolderPathW(nullptr, CSIDL_LOCAL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, folder))) {
        return FullPath(L"SCVScheduler.ini");
    }
    return std::wstring(folder) + L"\\SCVScheduler\\SCVScheduler.ini";
}

int Run(int argc, wchar_t** argv) {
    std::vector<std::string> words;
    for (int i = 1; i < argc; ++i) {
        words.push_back(ToUtf8(argv[i]));
    }
    const CConsole console;
    ParsedCommandLine parsed = ParseArguments(std::move(words), ToUtf8(GetFileVersionString()));
    if (!parsed.arguments) {
        if (parsed.exitCode == kFine) {
            std::cout << parsed.message;
        } else {
            std::cerr << "scvsched: " << parsed.message << '\n';
        }
        return parsed.exitCode;
    }
    Arguments& arguments = *parsed.arguments;
    for (std::wstring& path : arguments.paths) {
        path = FullPath(path);
    }
    if (arguments.command == Command::Watch) {
        CConsole::CatchStop();
    }

    CSystemClock clock;
    CWindowsFileSystem files;
    CWindowsShell shell;
    const CPlatform platform{clock, files, shell};
    CInstances instances;
    const Context context{platform,
                          arguments.list.empty() ? DefaultList() : FullPath(arguments.list),
                          std::cout,
                          std::cerr,
                          CConsole::Width(),
                          [&instances] { return instances.WhyNotToLaunch(); },
                          CConsole::WaitForStop};
    return RunCommand(arguments, context);
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    HardenProcess();
    RefreshTimeZone();
    try {
        return Run(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << "scvsched: " << error.what() << '\n';
        return kFindings;
    }
}
