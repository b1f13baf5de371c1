#include <windows.h>

#include <shlobj.h>

#include <exception>
#include <iostream>

#include "cli/commands/Subcommands.h"
#include "cli/commands/Watch.h"
#include "cli/report/Refusal.h"
#include "cli/win32/Console.h"
#include "cli/win32/FailureCommand.h"
#include "cli/win32/Files.h"
#include "core/list/TaskListPath.h"
#include "core/platform/Clock.h"
#include "core/platform/LocalTime.h"
#include "core/platform/Shell.h"
#include "core/platform/win32/WindowsFileSystem.h"
#include "util/Path.h"
#include "util/Utf8.h"
#include "util/win32/FileVersion.h"
#include "util/win32/KnownFolder.h"
#include "util/win32/ModulePath.h"
#include "util/win32/ProcessHardening.h"

namespace {

// The list that the window program uses.
std::wstring DefaultList() {
    const std::wstring folder = GetKnownFolder(CSIDL_LOCAL_APPDATA);
    return folder.empty() ? FullPath(L"SCVScheduler.ini") : folder + L"\\SCVScheduler\\SCVScheduler.ini";
}

// Creates the folder of the default list and moves a list of an earlier version there, as the window program
// does at its start. Otherwise an edit would create a new list and so hide the old one.
void SettleDefaultList(IFileSystem& files) {
    (void)SettleTaskListPath(
        {GetFolderPath(GetModulePath()) + L"SCVScheduler.HLP", GetKnownFolder(CSIDL_APPDATA),
         GetKnownFolder(CSIDL_LOCAL_APPDATA), L"SCVScheduler", L"SCVScheduler"},
        files);
}

int Run(int argc, wchar_t** argv) {
    std::vector<std::string> words;
    for (int i = 1; i < argc; ++i) {
        words.push_back(ToUtf8(argv[i]));
    }
    const CConsole console;
    const ParsedCommandLine parsed =
        ParseArguments(Subcommands(), std::move(words), FullPath, ToUtf8(GetFileVersionString()));
    if (!parsed.arguments) {
        if (parsed.exitCode == kFine) {
            std::cout << parsed.message;
        } else {
            std::cerr << "scvsched: " << parsed.message << '\n';
        }
        return parsed.exitCode;
    }
    const Arguments& arguments = *parsed.arguments;
    if (arguments.subcommand->handler == Watch) {
        CConsole::CatchStop();
    }

    CSystemClock clock;
    CWindowsFileSystem files;
    CWindowsShell shell;
    CFailureCommand failureCommand;
    const auto settleList = [&] {
        if (arguments.list.empty()) {
            SettleDefaultList(files);
        }
    };
    return RunSubcommand(arguments, {.platform = {clock, files, shell},
                                     .list = arguments.list.empty() ? DefaultList() : arguments.list,
                                     .in = std::cin,
                                     .out = std::cout,
                                     .err = std::cerr,
                                     .width = CConsole::Width(),
                                     .settleList = settleList,
                                     .findFiles = FindFiles,
                                     .failureCommand = failureCommand,
                                     .waitForStop = CConsole::WaitForStop});
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
