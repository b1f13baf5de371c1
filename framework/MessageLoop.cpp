#include "framework/MessageLoop.h"

#include "framework/ExceptionBoundary.h"
#include "framework/WinApp.h"
#include "framework/Wnd.h"

namespace {

bool PreTranslate(MSG& message) {
    for (HWND window = message.hwnd; window != nullptr; window = GetParent(window)) {
        CWnd* object = CWnd::FromHandle(window);
        BOOL taken = FALSE;
        if (object != nullptr &&
            (!AfxRunGuarded([&] { taken = object->PreTranslateMessage(&message); }) || taken)) {
            return true;
        }
    }
    return false;
}

}  // namespace

bool AfxPumpMessage(MSG& message) {
    if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
        return false;
    }
    if (!PreTranslate(message)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    return true;
}

int CWinApp::Run() {
    if (m_pMainWnd == nullptr) {
        PostQuitMessage(0);
    }
    MSG message{};
    while (AfxPumpMessage(message)) {
    }
    m_nExitCode = static_cast<int>(static_cast<INT_PTR>(message.wParam));
    return ExitInstance();
}

int AfxWinMain(CWinApp& app, const wchar_t* commandLine) {
    app.m_lpCmdLine = commandLine;
    int result = 0;
    AfxRunGuarded([&] {
        BOOL started = FALSE;
        AfxRunGuarded([&] { started = app.InitInstance(); });
        if (started) {
            result = app.Run();
            return;
        }
        if (app.m_pMainWnd != nullptr) {
            app.m_pMainWnd->DestroyWindow();
        }
        result = app.ExitInstance();
    });
    return result;
}
