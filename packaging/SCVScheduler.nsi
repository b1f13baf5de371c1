; The installer. scripts/package.sh makes it with these definitions (/D of makensis):
;   VERSION   such as 3.0.0        FILES   folder with the files to install
;   SETUP     file to write        WIDE    makes a 64-bit installer, for tests where no 32-bit program runs
;
; It installs for one user, without administrator rights. Its switches:
;   /S                 no window; exit code 2 when nothing was installed, because a file was in use or could not be
;                      written
;   /STARTUP=yes|no    start at log-on, in place of the box; without this switch it stays as it is (at first: no)
;   /PATH=yes|no       the folder on the user's PATH, likewise
;   /LOG=FILE          writes what was done, or why not, into this file (UTF-16)
;   /D=FOLDER          the folder to install into; the last switch, without quotation marks
; Switches of the uninstaller:
;   /S                 no window; exit code 2 when nothing was removed (a caller that waits for it needs _?=FOLDER at
;                      the end)
;   /LIST              also removes the task list and the settings
;   /LOG=FILE          as above
;
; A running instance is ended by its own Exit command, which saves the list. After an installation it is started
; again, in the tray if its window was hidden.

Unicode true
!ifdef WIDE
    Target amd64-unicode
!endif
SetCompressor /SOLID lzma
RequestExecutionLevel user
ManifestDPIAware true
ManifestSupportedOS all
AllowSkipFiles off

!include FileFunc.nsh
!include LogicLib.nsh
!include MUI2.nsh
!include Sections.nsh
!include packaging/UserPath.nsh

; Ids of commands of the main window. A window with the button of ID_EXIT_PROGRAM is the main window.
!searchparse /file ui/resource.h "#define ID_EXIT_PROGRAM " ID_EXIT_PROGRAM
!searchparse /file ui/resource.h "#define ID_SHOW_WINDOW " ID_SHOW_WINDOW

!define NAME "SCV Scheduler"
!define COMPANY "Talvernick"
!define PROGRAM "SCVScheduler.exe"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\SCVScheduler"
!define RUN_KEY "Software\Microsoft\Windows\CurrentVersion\Run"
!define RUN_VALUE "SCVScheduler"

Name "${NAME}"
OutFile "${SETUP}"
BrandingText "${NAME} ${VERSION}"
InstallDir "$LOCALAPPDATA\Programs\SCVScheduler"
; An upgrade uses the folder of the installed program.
InstallDirRegKey HKCU "${UNINSTALL_KEY}" InstallLocation
VIProductVersion "${VERSION}.0"
VIAddVersionKey ProductName "${NAME}"
VIAddVersionKey ProductVersion "${VERSION}"
VIAddVersionKey FileVersion "${VERSION}"
VIAddVersionKey FileDescription "${NAME} Setup"
VIAddVersionKey CompanyName "${COMPANY}"
VIAddVersionKey LegalCopyright ""

Var Window  ; the main window of a running instance, 0 without one
Var Process ; its process, to be closed
Var Program ; the file that it runs
Var Ended   ; such a file that was ended here, to be started again
Var Shown   ; not empty when an ended one showed its window
Var Hidden  ; not empty when one was started again in the tray
Var Log     ; the log file, empty without one
Var Writing ; the file that is being written; when that fails the script ends there

!define MUI_ICON "ui/icons/program.ico"
!define MUI_UNICON "ui/icons/program.ico"
!define MUI_ABORTWARNING
!define MUI_COMPONENTSPAGE_SMALLDESC
!insertmacro MUI_PAGE_COMPONENTS
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE AskToEnd
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!define MUI_WELCOMEFINISHPAGE_BITMAP "packaging/side.bmp"
!define MUI_FINISHPAGE_RUN
!define MUI_FINISHPAGE_RUN_TEXT "&Start ${NAME}"
!define MUI_FINISHPAGE_RUN_FUNCTION StartShown
!define MUI_PAGE_CUSTOMFUNCTION_SHOW HideStart
!insertmacro MUI_PAGE_FINISH
!define MUI_COMPONENTSPAGE_TEXT_TOP "The task list and the settings stay, unless you tick their box."
!define MUI_PAGE_CUSTOMFUNCTION_SHOW un.HideSpace
!define MUI_PAGE_CUSTOMFUNCTION_LEAVE un.AskToEnd
!insertmacro MUI_UNPAGE_COMPONENTS
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English

; The files to install, and what is done with each. All new files are written beside the old ones before the first
; old one is replaced, so that a full disk or a folder that is not writable leaves the old program whole.
!macro EachFile DO
    !insertmacro ${DO} "${PROGRAM}"
    !insertmacro ${DO} "scvsched.exe"
    !insertmacro ${DO} "README.txt"
    !insertmacro ${DO} "guide.html"
    !insertmacro ${DO} "scvsched.html"
    !insertmacro ${DO} "task-list-file.html"
    !insertmacro ${DO} "CHANGELOG.html"
!macroend
!macro Put NAME
    StrCpy $Writing "${NAME}"
    File "/oname=${NAME}.new" "${FILES}/${NAME}"
!macroend
!macro Replace NAME
    Delete "$INSTDIR\${NAME}"
    Rename "$INSTDIR\${NAME}.new" "$INSTDIR\${NAME}"
!macroend
!macro Discard NAME
    Delete "$INSTDIR\${NAME}.new"
!macroend
!macro Remove NAME
    Delete "$INSTDIR\${NAME}"
!macroend

; --- The log file, for installer and uninstaller ---------------------------------------------------------------------

!define Say "!insertmacro Say"
!macro Say TEXT
    ${If} $Log != ""
        FileWriteUTF16LE $Log "${TEXT}$\r$\n"
    ${EndIf}
!macroend

!macro LogFunctions un DOING
Function ${un}OpenLog
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/LOG=" $1
    ${If} ${Errors}
        Return
    ${EndIf}
    FileOpen $Log $1 w
    ${If} ${Errors}
        MessageBox MB_ICONSTOP "The log file $1 could not be written. Nothing was changed." /SD IDOK
        SetErrorLevel 2
        Quit
    ${EndIf}
    FileWriteUTF16LE /BOM $Log "${DOING} ${NAME} ${VERSION}$\r$\n"
FunctionEnd
!macroend
!insertmacro LogFunctions "" Installing
!insertmacro LogFunctions un. Removing

; Reports to the log and in a message box why the script stops. If the user chooses Retry it continues at ${RETRY}, else it ends.
!macro AskToRetry TEXT RETRY
    ${Say} "${TEXT}"
    MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "${TEXT}" /SD IDCANCEL IDRETRY ${RETRY}
    Abort
!macroend

; Ends the script if this file exists and cannot be written.
!macro ExpectFree FILE REMEDY
    ClearErrors
    ${If} ${FileExists} "$INSTDIR\${FILE}"
        FileOpen $0 "$INSTDIR\${FILE}" a
        FileClose $0
    ${EndIf}
    ${If} ${Errors}
        !insertmacro AskToRetry "$INSTDIR\${FILE} is in use or cannot be written. ${REMEDY}" again
    ${EndIf}
!macroend

; --- Running instances, for installer and uninstaller ----------------------------------------------------------------

!macro InstanceFunctions un
; Sets $Window (0 when nothing runs), $Process and $Program. Copies of the program in other folders count too: all use
; the same list.
Function ${un}FindInstance
    StrCpy $Window 0
    ${Do}
        FindWindow $Window "#32770" "" 0 $Window
        ${If} $Window P= 0
            ${Break}
        ${EndIf}
        System::Call 'user32::GetDlgItem(p $Window, i ${ID_EXIT_PROGRAM}) p .r0'
        ${If} $0 P<> 0
            System::Call 'user32::GetWindowThreadProcessId(p $Window, *i .r0)'
            ; SYNCHRONIZE and PROCESS_QUERY_LIMITED_INFORMATION
            System::Call 'kernel32::OpenProcess(i 0x101000, i 0, i r0) p .s'
            Pop $Process
            System::Call 'kernel32::QueryFullProcessImageNameW(p $Process, i 0, w .s, *i ${NSIS_MAX_STRLEN})'
            Pop $Program
            StrCpy $0 $Program "" -17
            ${If} $0 == "\${PROGRAM}"
                ${Break}
            ${EndIf}
            System::Call 'kernel32::CloseHandle(p $Process)'
        ${EndIf}
    ${Loop}
FunctionEnd

; Stays on the page when an instance runs and the user does not agree to end it.
Function ${un}AskToEnd
    Call ${un}FindInstance
    ${If} $Window P<> 0
        System::Call 'kernel32::CloseHandle(p $Process)'
        MessageBox MB_OKCANCEL|MB_ICONINFORMATION "${NAME} is running. It is ended now, as its Exit does: the list is saved.${AGAIN}" /SD IDOK IDOK +2
        Abort
    ${EndIf}
FunctionEnd

; Ends all instances. If one cannot be ended, ends the script.
Function ${un}EndInstances
again:
    Call ${un}FindInstance
    ${If} $Window P= 0
        Return
    ${EndIf}
    StrCpy $1 1
    ; The window is disabled while a modal dialog is open: the program must not end then.
    System::Call 'user32::IsWindowEnabled(p $Window) i .r0'
    ${If} $0 <> 0
        System::Call 'user32::IsWindowVisible(p $Window) i .r2'
        System::Call 'user32::PostMessageW(p $Window, i ${WM_COMMAND}, p ${ID_EXIT_PROGRAM}, p 0)'
        System::Call 'kernel32::WaitForSingleObject(p $Process, i 15000) i .r1'
    ${EndIf}
    System::Call 'kernel32::CloseHandle(p $Process)'
    ${If} $1 == 0
        StrCpy $Ended $Program
        ${Say} "$Program was running and has been ended; it has saved its list."
        ${If} $2 <> 0
            StrCpy $Shown 1
        ${EndIf}
        Goto again
    ${EndIf}
    !insertmacro AskToRetry "${NAME} is running and cannot be ended now. Answer what it asks, or end it with its Exit, and try again." again
FunctionEnd

; Ends the script unless the programs can be replaced.
Function ${un}ExpectFree
again:
    !insertmacro ExpectFree "${PROGRAM}" "Look whether the folder can be written to, and try again."
    !insertmacro ExpectFree "scvsched.exe" "End scvsched, which may be watching in a console (Ctrl+C), and try again."
FunctionEnd

; Starts $Program if an instance was ended before. While the pages are shown it starts hidden; see ShowAgain.
Function ${un}StartAgain
    ${If} $Ended != ""
        ${If} $Shown != ""
        ${AndIf} ${Silent}
            Exec '"$Program"'
        ${Else}
            Exec '"$Program" /background'
            StrCpy $Hidden 1
        ${EndIf}
    ${EndIf}
FunctionEnd

Function ${un}ShowAgain
    ${If} $Shown == ""
    ${OrIf} $Hidden == ""
        Return
    ${EndIf}
    ; The program was perhaps started only a moment ago: wait up to 15 seconds for its window.
    ${For} $1 1 150
        Call ${un}FindInstance
        ${If} $Window P<> 0
            System::Call 'kernel32::CloseHandle(p $Process)'
            System::Call 'user32::PostMessageW(p $Window, i ${WM_COMMAND}, p ${ID_SHOW_WINDOW}, p 0)'
            ${Break}
        ${EndIf}
        Sleep 100
    ${Next}
FunctionEnd
!macroend
!define AGAIN " Afterwards it is started again."
!insertmacro InstanceFunctions ""
!undef AGAIN
!define AGAIN ""
!insertmacro InstanceFunctions un.
${UserPathFunctions} ""
${UserPathFunctions} un.

; --- Installing ------------------------------------------------------------------------------------------------------

Section "${NAME}" SecProgram
    SectionIn RO
    Call EndInstances
    Call ExpectFree
    SetOutPath $INSTDIR
    ClearErrors
    !insertmacro EachFile Put
    StrCpy $Writing uninstall.exe
    WriteUninstaller "$INSTDIR\uninstall.exe.new"
    ${If} ${Errors}
        MessageBox MB_ICONSTOP "The files could not be written to $INSTDIR. Nothing was changed." /SD IDOK
        Abort
    ${EndIf}
    StrCpy $Writing ""
    ; Installed in another folder: remove it there. With _?= the uninstaller runs in place, so that ExecWait waits for it.
    ReadRegStr $0 HKCU "${UNINSTALL_KEY}" InstallLocation
    ${If} $0 != ""
    ${AndIf} $0 != $INSTDIR
    ${AndIf} ${FileExists} "$0\uninstall.exe"
        ExecWait '"$0\uninstall.exe" /S _?=$0' $1
        ${If} $1 = 0
            Delete "$0\uninstall.exe"
            RMDir "$0"
        ${EndIf}
    ${EndIf}
    !insertmacro EachFile Replace
    !insertmacro Replace uninstall.exe
    CreateShortcut "$SMPROGRAMS\${NAME}.lnk" "$INSTDIR\${PROGRAM}"
    CreateShortcut "$SMPROGRAMS\${NAME} Guide.lnk" "$INSTDIR\guide.html"
    WriteRegStr HKCU "${UNINSTALL_KEY}" DisplayName "${NAME}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" DisplayVersion "${VERSION}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" DisplayIcon "$INSTDIR\${PROGRAM}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" Publisher "${COMPANY}"
    WriteRegStr HKCU "${UNINSTALL_KEY}" InstallLocation $INSTDIR
    WriteRegStr HKCU "${UNINSTALL_KEY}" UninstallString '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKCU "${UNINSTALL_KEY}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
    SectionGetSize ${SecProgram} $0
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" EstimatedSize $0
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" NoModify 1
    WriteRegDWORD HKCU "${UNINSTALL_KEY}" NoRepair 1
SectionEnd

; The value that the box in the program's window reads and writes.
Section /o "Start at log-on" SecStartup
    WriteRegStr HKCU "${RUN_KEY}" "${RUN_VALUE}" '"$INSTDIR\${PROGRAM}" /background'
SectionEnd

Section /o "scvsched on the PATH" SecPath
    StrCpy $R4 $INSTDIR
    Call AddToUserPath
SectionEnd

Section
    ${IfNot} ${SectionIsSelected} ${SecStartup}
        DeleteRegValue HKCU "${RUN_KEY}" "${RUN_VALUE}"
    ${EndIf}
    ${IfNot} ${SectionIsSelected} ${SecPath}
        StrCpy $R4 $INSTDIR
        Call RemoveFromUserPath
    ${EndIf}
    ${Say} "Installed in $INSTDIR."
    StrCpy $Program "$INSTDIR\${PROGRAM}"
    Call StartAgain
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
    !insertmacro MUI_DESCRIPTION_TEXT ${SecProgram} "The scheduler, scvsched for the console, the guide, and their entries in the start menu."
    !insertmacro MUI_DESCRIPTION_TEXT ${SecStartup} "Starts the scheduler in the tray whenever you log on. Its window has the same box."
    !insertmacro MUI_DESCRIPTION_TEXT ${SecPath} "In a console the command scvsched works in every folder. Yours only, not other users'."
!insertmacro MUI_FUNCTION_DESCRIPTION_END

; Ticks the box of a section if its switch says yes. Without the switch $3 decides: ticked when it is not empty.
!macro Tick SECTION SWITCH
    ${GetParameters} $1
    ${GetOptions} $1 "/${SWITCH}=" $2
    ${If} $2 == "yes"
        StrCpy $3 yes
    ${ElseIf} $2 == "no"
        StrCpy $3 ""
    ${EndIf}
    ${If} $3 != ""
        !insertmacro SelectSection ${SECTION}
    ${EndIf}
!macroend

Function .onInit
    Call OpenLog
    ReadRegStr $3 HKCU "${RUN_KEY}" "${RUN_VALUE}"
    !insertmacro Tick ${SecStartup} STARTUP
    ReadRegStr $R4 HKCU "${UNINSTALL_KEY}" InstallLocation
    ${If} $R4 == ""
        StrCpy $R4 $INSTDIR
    ${EndIf}
    Call FindInUserPath
    StrCpy $3 ""
    ${If} $R3 P<> 0
        StrCpy $3 yes
    ${EndIf}
    !insertmacro Tick ${SecPath} PATH
FunctionEnd

Function .onInstFailed
    ${If} $Writing != ""
        ${Say} "$INSTDIR\$Writing could not be written."
    ${EndIf}
    ${Say} "Nothing was changed."
    !insertmacro EachFile Discard
    !insertmacro Discard uninstall.exe
    ; Removes the folder if it is empty. It must not be the current folder then.
    SetOutPath $TEMP
    RMDir "$INSTDIR"
    StrCpy $Program $Ended
    Call StartAgain
FunctionEnd

Function .onGUIEnd
    Call ShowAgain
FunctionEnd

Function HideStart
    ${If} $Ended != ""
        SendMessage $mui.FinishPage.Run ${BM_SETCHECK} ${BST_UNCHECKED} 0
        ShowWindow $mui.FinishPage.Run ${SW_HIDE}
    ${EndIf}
FunctionEnd

Function StartShown
    Exec '"$INSTDIR\${PROGRAM}"'
FunctionEnd

; --- Removing --------------------------------------------------------------------------------------------------------

Section "un.${NAME}" UnProgram
    SectionIn RO
    Call un.EndInstances
    Call un.ExpectFree
    ; A copy of the program in another folder keeps its own start at log-on.
    ReadRegStr $0 HKCU "${RUN_KEY}" "${RUN_VALUE}"
    ${If} $0 == '"$INSTDIR\${PROGRAM}" /background'
        DeleteRegValue HKCU "${RUN_KEY}" "${RUN_VALUE}"
    ${EndIf}
    StrCpy $R4 $INSTDIR
    Call un.RemoveFromUserPath
    Delete "$SMPROGRAMS\${NAME}.lnk"
    Delete "$SMPROGRAMS\${NAME} Guide.lnk"
    DeleteRegKey HKCU "${UNINSTALL_KEY}"
    !insertmacro EachFile Remove
    Delete "$INSTDIR\uninstall.exe"
    ; Does nothing when other files are in the folder.
    RMDir "$INSTDIR"
    ${Say} "Removed from $INSTDIR."
SectionEnd

Section /o "un.Task list and settings" UnList
    StrCpy $0 "$LOCALAPPDATA\SCVScheduler"
    Delete "$0\SCVScheduler.ini"
    Delete "$0\SCVScheduler.ini.tmp"
    ; Lock files that a power cut has left.
    Delete "$0\SCVScheduler.ini.lock"
    Delete "$0\SCVScheduler.ini.launch"
    Delete "$0\SCVScheduler.ini.window"
    Delete "$0\SCVScheduler.ini.watch"
    RMDir "$0"
    ; The lists of earlier versions, which the program would move to the new place at its first start.
    Delete "$APPDATA\Scrivane\SCVScheduler.ini"
    Delete "$INSTDIR\SCVScheduler.ini"
    RMDir "$INSTDIR"
    DeleteRegKey HKCU "Software\${COMPANY}\SCVScheduler"
    DeleteRegKey /ifempty HKCU "Software\${COMPANY}"
SectionEnd

!insertmacro MUI_UNFUNCTION_DESCRIPTION_BEGIN
    !insertmacro MUI_DESCRIPTION_TEXT ${UnProgram} "The programs, their entries in the start menu and the PATH, and the start at log-on."
    !insertmacro MUI_DESCRIPTION_TEXT ${UnList} "The list of your projects, and what the window remembers. The projects themselves stay."
!insertmacro MUI_UNFUNCTION_DESCRIPTION_END

Function un.onInit
    Call un.OpenLog
    ${GetParameters} $0
    ClearErrors
    ${GetOptions} $0 "/LIST" $1
    ${IfNot} ${Errors}
        !insertmacro SelectSection ${UnList}
    ${EndIf}
FunctionEnd

Function un.HideSpace
    ShowWindow $mui.ComponentsPage.SpaceRequired ${SW_HIDE}
FunctionEnd

Function un.onUninstFailed
    ${Say} "Nothing was changed."
    StrCpy $Program $Ended
    Call un.StartAgain
FunctionEnd

Function un.onGUIEnd
    Call un.ShowAgain
FunctionEnd
