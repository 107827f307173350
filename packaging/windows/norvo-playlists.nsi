; The installer for 64-bit Windows; scripts/make-windows-installer.py makes it. It is given
;   VERSION   of the project          OUTPUT   its own file
;   ICON      of the installer        FILES    a script that has the macros InstallFiles and
;                                              RemoveFiles, of all that the package holds
; A person's data, which are documents and settings of the moves, are not its business.

Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
ManifestDPIAware true
RequestExecutionLevel admin

!include LogicLib.nsh
!include MUI2.nsh
!include WinMessages.nsh
!include "${FILES}"
!include "${__FILEDIR__}\path.nsh"

!define PRODUCT "Norvo Media Playlist Parser"
!define MENU "$SMPROGRAMS\${PRODUCT}"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\NorvoPlayList"
!define REGISTER_X64 '"$SYSDIR\regsvr32.exe" /s'
!define WOW64_REGSVR32 "$WINDIR\SysWOW64\regsvr32.exe"

Name "${PRODUCT}"
OutFile "${OUTPUT}"
InstallDir "$PROGRAMFILES64\NorvoPlayList"
InstallDirRegKey HKLM "${UNINSTALL_KEY}" "InstallLocation"

VIProductVersion "${VERSION}.0"
VIFileVersion "${VERSION}.0"
VIAddVersionKey "ProductName" "${PRODUCT}"
VIAddVersionKey "CompanyName" "Norvo"
VIAddVersionKey "LegalCopyright" "The ${PRODUCT} authors"
VIAddVersionKey "FileDescription" "Installs ${PRODUCT}"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "ProductVersion" "${VERSION}"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!insertmacro MUI_PAGE_LICENSE "${LICENSE}"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

Function .onInit
  SetShellVarContext all
FunctionEnd

Function un.onInit
  SetShellVarContext all
FunctionEnd

; What a program has open would stay, to go at the next start of Windows, with what was installed in
; its place meanwhile: nothing is begun then. A program that runs cannot be opened for writing.
!macro RequireUnused UN
  Function ${UN}RequireUnused
    Exch $0
    ${If} ${FileExists} "$0"
      ClearErrors
      FileOpen $1 "$0" a
      ${If} ${Errors}
        MessageBox MB_ICONSTOP "$0 is in use. Close the programs that use it, scripts too, and try again." /SD IDOK
        SetErrorLevel 4
        Quit
      ${EndIf}
      FileClose $1
    ${EndIf}
    Pop $0
  FunctionEnd

  Function ${UN}RequireAllUnused
    Exch $0
    Push "$0\x64\NorvoPlayList.dll"
    Call ${UN}RequireUnused
    Push "$0\x86\NorvoPlayList.dll"
    Call ${UN}RequireUnused
    Push "$0\x64\norvo-playlists.exe"
    Call ${UN}RequireUnused
    Push "$0\x86\norvo-playlists.exe"
    Call ${UN}RequireUnused
    Pop $0
  FunctionEnd
!macroend
!insertmacro RequireUnused ""
!insertmacro RequireUnused "un."

; An earlier version goes first, so that none of its files stays.
Function RemoveEarlierVersion
  ReadRegStr $0 HKLM "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $0 != ""
  ${AndIf} ${FileExists} "$0\Uninstall.exe"
    Push "$0"
    Call RequireAllUnused
    ; Told its folder, it works from there and ends when it is done.
    ExecWait '"$0\Uninstall.exe" /S _?=$0'
    Delete "$0\Uninstall.exe"
    RMDir "$0"
  ${EndIf}
FunctionEnd

Section
  Call RemoveEarlierVersion
  Push "$INSTDIR"
  Call RequireAllUnused
  ClearErrors
  !insertmacro InstallFiles
  ${If} ${Errors}
    SetErrorLevel 5
    Abort "Not all files could be written to $INSTDIR"
  ${EndIf}
  SetOutPath "$INSTDIR"
  WriteUninstaller "$INSTDIR\Uninstall.exe"

  ExecWait '${REGISTER_X64} "$INSTDIR\x64\NorvoPlayList.dll"' $0
  ${If} $0 <> 0
    SetErrorLevel 3
    Abort "regsvr32 could not register x64\NorvoPlayList.dll: $0"
  ${EndIf}
  ; A Windows without 32-bit programs has nothing that could use the other one.
  ${If} ${FileExists} "${WOW64_REGSVR32}"
    ExecWait '"${WOW64_REGSVR32}" /s "$INSTDIR\x86\NorvoPlayList.dll"' $0
    ${If} $0 <> 0
      SetErrorLevel 3
      Abort "regsvr32 could not register x86\NorvoPlayList.dll: $0"
    ${EndIf}
  ${EndIf}

  StrCpy $0 "$INSTDIR\x64"
  Call AddToPath

  CreateDirectory "${MENU}"
  CreateShortcut "${MENU}\Manual.lnk" "$INSTDIR\docs\manual\${MANUAL}"
  CreateShortcut "${MENU}\Automation library.lnk" "$INSTDIR\docs\automation.html"
  CreateShortcut "${MENU}\Uninstall.lnk" "$INSTDIR\Uninstall.exe"

  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "${PRODUCT}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\x64\norvo-playlists.exe"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "Publisher" "Norvo"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
  WriteRegStr HKLM "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

Section "Uninstall"
  Push "$INSTDIR"
  Call un.RequireAllUnused
  ExecWait '${REGISTER_X64} /u "$INSTDIR\x64\NorvoPlayList.dll"'
  ${If} ${FileExists} "${WOW64_REGSVR32}"
    ExecWait '"${WOW64_REGSVR32}" /s /u "$INSTDIR\x86\NorvoPlayList.dll"'
  ${EndIf}

  StrCpy $0 "$INSTDIR\x64"
  Call un.RemoveFromPath

  Delete "${MENU}\Manual.lnk"
  Delete "${MENU}\Automation library.lnk"
  Delete "${MENU}\Uninstall.lnk"
  RMDir "${MENU}"
  DeleteRegKey HKLM "${UNINSTALL_KEY}"

  ; The logs that program and libraries write beside themselves.
  Delete "$INSTDIR\x64\VBLog.txt"
  Delete "$INSTDIR\x86\VBLog.txt"
  ; File by file: what a person has put there stays.
  !insertmacro RemoveFiles
  Delete "$INSTDIR\Uninstall.exe"
  RMDir "$INSTDIR"
SectionEnd
