; The user's PATH, the value Path of HKCU\Environment: appends a folder and removes it again. After both the value is what
; it was before, and its type (REG_EXPAND_SZ or REG_SZ) stays.
;
;   ${UserPathFunctions} PREFIX    defines the functions for the installer ("") or the uninstaller ("un."), which has only
;                                  RemoveFromUserPath. Set $R4 to the folder before each call:
;       FindInUserPath    sets $R3 to 0 when the PATH has no such entry
;       AddToUserPath     does nothing when the PATH has the entry already
;       RemoveFromUserPath
;
; NSIS cuts strings at ${NSIS_MAX_STRLEN} characters, and a PATH can have 32,767. So the value never becomes an NSIS string: it
; stays in a block of memory, on which the system's functions work. The functions use $R0 (key), $R1 (type), $R2 (block, 0 when
; the value cannot be read), $R3 (address of the entry in the block) and $0 to $5.

!define UserPathFunctions '!insertmacro UserPathFunctions'
!define SEMICOLON 59

!macro UserPathFunctions un
Function ${un}OpenUserPath
    StrCpy $R2 0
    StrCpy $R3 0
    ; KEY_QUERY_VALUE and KEY_SET_VALUE of a key of HKEY_CURRENT_USER
    System::Call 'advapi32::RegCreateKeyExW(p 0x80000001, w "Environment", i 0, p 0, i 0, i 3, p 0, *p .R0, p 0) i .r0'
    ${If} $0 <> 0
        StrCpy $R0 0
        Return
    ${EndIf}
    System::Call 'advapi32::RegQueryValueExW(p R0, w "Path", p 0, *i .R1, p 0, *i .r1) i .r0'
    ${If} $0 = 2 ; ERROR_FILE_NOT_FOUND: as Windows would make it, REG_EXPAND_SZ
        StrCpy $R1 2
        StrCpy $1 0
    ${ElseIf} $0 <> 0
    ${OrIf} $R1 < 1
    ${OrIf} $R1 > 2
        Return
    ${EndIf}
    ; With room for one more entry. The block is filled with zeros, so that the text always has a terminator.
    IntOp $2 4 * ${NSIS_MAX_STRLEN}
    IntOp $2 $2 + $1
    System::Alloc $2
    Pop $R2
    ${If} $1 > 0
        System::Call 'advapi32::RegQueryValueExW(p R0, w "Path", p 0, p 0, p R2, *i r1) i .r0'
        ${If} $0 <> 0
            System::Free $R2
            StrCpy $R2 0
        ${EndIf}
    ${EndIf}
FunctionEnd

Function ${un}CloseUserPath
    System::Free $R2
    System::Call 'advapi32::RegCloseKey(p R0)'
FunctionEnd

; Sets $R3 to the entry's address, $2 to its length in characters. A folder with a semicolon is quoted in $R4.
Function ${un}FindEntry
    System::Call 'shlwapi::StrChrW(w R4, i ${SEMICOLON}) p .r0'
    ${If} $0 P<> 0
        StrCpy $R4 '"$R4"'
    ${EndIf}
    StrLen $2 $R4
    StrCpy $3 $R2
    ${DoWhile} $R2 P<> 0
        System::Call 'shlwapi::StrStrIW(p r3, w R4) p .r3'
        ${If} $3 P= 0
            ${Break}
        ${EndIf}
        ; Only a whole entry between separators counts, not the beginning of a longer path.
        StrCpy $4 ${SEMICOLON}
        ${If} $3 P<> $R2
            IntPtrOp $5 $3 - 2
            System::Call '*$5(&i2 .r4)'
        ${EndIf}
        IntOp $5 $2 * 2
        IntPtrOp $5 $3 + $5
        System::Call '*$5(&i2 .r5)'
        ${If} $4 = ${SEMICOLON}
            ${If} $5 = ${SEMICOLON}
            ${OrIf} $5 = 0
                StrCpy $R3 $3
                ${Break}
            ${EndIf}
        ${EndIf}
        IntPtrOp $3 $3 + 2
    ${Loop}
FunctionEnd

; Writes the block to the registry and notifies running programs, so that consoles opened from now on have the new PATH.
Function ${un}WriteUserPath
    System::Call 'kernel32::lstrlenW(p R2) i .r1'
    ${If} $1 = 0
        System::Call 'advapi32::RegDeleteValueW(p R0, w "Path")'
    ${Else}
        IntOp $1 $1 + 1
        IntOp $1 $1 * 2
        System::Call 'advapi32::RegSetValueExW(p R0, w "Path", i 0, i R1, p R2, i r1)'
    ${EndIf}
    SendMessage ${HWND_BROADCAST} ${WM_SETTINGCHANGE} 0 "STR:Environment" /TIMEOUT=5000
FunctionEnd

!if "${un}" == ""
Function FindInUserPath
    Call OpenUserPath
    Call FindEntry
    Call CloseUserPath
FunctionEnd

Function AddToUserPath
    Call OpenUserPath
    Call FindEntry
    ${If} $R2 P<> 0
    ${AndIf} $R3 P= 0
        StrCpy $4 0
        System::Call 'kernel32::lstrlenW(p R2) i .r1'
        ${If} $1 > 0
            IntOp $1 $1 * 2
            IntPtrOp $3 $R2 + $1
            IntPtrOp $3 $3 - 2
            System::Call '*$3(&i2 .r4)'
            ${If} $4 <> ${SEMICOLON}
                System::Call 'kernel32::lstrcatW(p R2, w ";")'
            ${EndIf}
        ${EndIf}
        System::Call 'kernel32::lstrcatW(p R2, w R4)'
        ; The value ended with a separator: it does so again.
        ${If} $4 = ${SEMICOLON}
            System::Call 'kernel32::lstrcatW(p R2, w ";")'
        ${EndIf}
        Call WriteUserPath
    ${EndIf}
    Call CloseUserPath
FunctionEnd
!endif

; Also removes one separator: the one behind the entry or, for the last entry, the one before it.
Function ${un}RemoveFromUserPath
    Call ${un}OpenUserPath
    Call ${un}FindEntry
    ${If} $R3 P<> 0
        IntOp $2 $2 * 2
        IntPtrOp $3 $R3 + $2
        System::Call '*$3(&i2 .r4)'
        ${If} $4 = ${SEMICOLON}
            IntPtrOp $3 $3 + 2
        ${ElseIf} $R3 P<> $R2
            IntPtrOp $R3 $R3 - 2
        ${EndIf}
        System::Call 'kernel32::lstrlenW(p r3) i .r1'
        IntOp $1 $1 + 1
        IntOp $1 $1 * 2
        System::Call 'ntdll::RtlMoveMemory(p R3, p r3, p r1)'
        Call ${un}WriteUserPath
    ${EndIf}
    Call ${un}CloseUserPath
FunctionEnd
!macroend
