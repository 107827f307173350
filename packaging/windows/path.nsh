; The PATH of all users. It may be longer than a string of the installer, so it is kept in memory of
; its own, and changed there by calls of the system.
;
; After each call of PathOpen comes one of PathClose:
;   $R1  the registry key          $R2  type of the value
;   $R3  the text                  $R4  the text with a ";" at both ends, to be searched

!define ENVIRONMENT "SYSTEM\CurrentControlSet\Control\Session Manager\Environment"
!define HKEY_LOCAL_MACHINE 0x80000002
!define KEY_READ_AND_SET 0x20007
!define SPACE_FOR_ONE_MORE 4096

!macro PathFunctions un
Function ${un}PathOpen
  System::Call 'advapi32::RegOpenKeyExW(p ${HKEY_LOCAL_MACHINE}, w "${ENVIRONMENT}", i 0, \
    i ${KEY_READ_AND_SET}, *p .R1) i .R0'
  StrCpy $R2 2 ; REG_EXPAND_SZ, of a PATH that is not there yet
  StrCpy $R5 0
  System::Call 'advapi32::RegQueryValueExW(p R1, w "Path", p 0, *i .R2, p 0, *i .R5) i .R0'
  IntOp $R6 $R5 + ${SPACE_FOR_ONE_MORE}
  System::Alloc $R6
  Pop $R3
  System::Alloc $R6
  Pop $R4
  System::Call 'advapi32::RegQueryValueExW(p R1, w "Path", p 0, *i .R2, p R3, *i R5 .R5) i .R0'
  System::Call 'kernel32::lstrcpyW(p R4, w ";")'
  System::Call 'kernel32::lstrcatW(p R4, p R3)'
  System::Call 'kernel32::lstrcatW(p R4, w ";")'
FunctionEnd

Function ${un}PathClose
  System::Free $R3
  System::Free $R4
  System::Call 'advapi32::RegCloseKey(p R1)'
  SendMessage ${HWND_BROADCAST} ${WM_SETTINGCHANGE} 0 "STR:Environment" /TIMEOUT=5000
FunctionEnd

; Writes the text at $R7.
Function ${un}PathWrite
  System::Call 'kernel32::lstrlenW(p R7) i .R8'
  IntOp $R8 $R8 * 2
  IntOp $R8 $R8 + 2
  System::Call 'advapi32::RegSetValueExW(p R1, w "Path", i 0, i R2, p R7, i R8) i .R0'
FunctionEnd
!macroend

!insertmacro PathFunctions ""
!insertmacro PathFunctions "un."

; The folder $0 becomes the last of the PATH, unless it is there.
Function AddToPath
  Call PathOpen
  System::Call 'shlwapi::StrStrIW(p R4, w ";$0;") p .R9'
  ${If} $R9 P= 0
    System::Call 'kernel32::lstrlenW(p R3) i .R8'
    StrCpy $R9 "$0"
    ${If} $R8 > 0
      IntOp $R8 $R8 * 2
      IntPtrOp $R8 $R3 + $R8
      IntPtrOp $R8 $R8 - 2
      System::Call '*$R8(&w1 .R7)'
      ${If} $R7 == ";"
        StrCpy $R9 "$0;"
      ${Else}
        StrCpy $R9 ";$0"
      ${EndIf}
    ${EndIf}
    System::Call 'kernel32::lstrcatW(p R3, w R9)'
    StrCpy $R7 $R3
    Call PathWrite
  ${EndIf}
  Call PathClose
FunctionEnd

; The folder $0 is no more in the PATH, of which the rest stays as it is.
Function un.RemoveFromPath
  Call un.PathOpen
  System::Call 'shlwapi::StrStrIW(p R4, w ";$0;") p .R9'
  ${If} $R9 P<> 0
    StrLen $R8 ";$0"
    IntOp $R8 $R8 * 2
    IntPtrOp $R8 $R9 + $R8
    System::Call 'kernel32::lstrlenW(p R8) i .R7'
    IntOp $R7 $R7 * 2
    IntOp $R7 $R7 + 2
    System::Call 'ntdll::memmove(p R9, p R8, p R7)'
    ; Without the ";" at both ends.
    System::Call 'kernel32::lstrlenW(p R4) i .R8'
    ${If} $R8 > 1
      IntOp $R8 $R8 - 1
      IntOp $R8 $R8 * 2
      IntPtrOp $R8 $R4 + $R8
      System::Call '*$R8(&i2 0)'
    ${EndIf}
    IntPtrOp $R7 $R4 + 2
    Call un.PathWrite
  ${EndIf}
  Call un.PathClose
FunctionEnd
