; The installer of Pointalk for one user. tools/make_packages.py makes it and defines
;   ARCHITECTURE   amd64 or x86, of the program and of the installer alike
;   VERSION        as in 1.0.0
;   FOLDER         the folder of the files that it carries
;   KILOBYTES      how large they are
;   OUTPUT         the installer to write
;
; All that it says stands in message boxes: a screen reader reads one aloud as soon as it opens. With /S it asks nothing.
; Exit codes: 0 done, 1 the user left it, 2 a file could not be written, 3 (with /S) Pointalk is running.

Unicode true
Target ${ARCHITECTURE}-unicode
RequestExecutionLevel user
ManifestSupportedOS all
ManifestDPIAware true
SetCompressor /SOLID lzma
SetDateSave off
AllowSkipFiles off
Name "Pointalk"
BrandingText "Pointalk ${VERSION}"
OutFile "${OUTPUT}"
Icon "pointalk.ico"
UninstallIcon "pointalk.ico"
AutoCloseWindow true

VIProductVersion "${VERSION}.0"
VIAddVersionKey "CompanyName" "Corvane"
VIAddVersionKey "FileDescription" "Pointalk Setup"
VIAddVersionKey "FileVersion" "${VERSION}"
VIAddVersionKey "LegalCopyright" "Copyright Corvane"
VIAddVersionKey "ProductName" "Pointalk"
VIAddVersionKey "ProductVersion" "${VERSION}"

!define WINDOWS_KEY "Software\Microsoft\Windows\CurrentVersion"
!define APP_PATHS_KEY "${WINDOWS_KEY}\App Paths\Pointalk.exe"
!define UNINSTALL_KEY "${WINDOWS_KEY}\Uninstall\Pointalk"
!define RUN_KEY "${WINDOWS_KEY}\Run"

!include LogicLib.nsh

; The settings lie beside the program, so it is where the user may write. An update goes where the last one went.
InstallDir "$LOCALAPPDATA\Programs\Pointalk"
InstallDirRegKey HKCU "${UNINSTALL_KEY}" "InstallLocation"

; For the first box, which has no window before it: started from a warning of the system's, or from its settings, it could
; open behind what is in front, where no screen reader reads it.
!define IN_FRONT "MB_SETFOREGROUND|MB_TOPMOST"

; What is said.
!define BEFORE_INSTALLING "Pointalk ${VERSION} will be installed for you alone, in the folder $INSTDIR. Settings that are \
there already stay as they are."
!define INSTALLED "Pointalk is installed. It is in the Start menu. Start it now?"
!define BEFORE_REMOVING "Pointalk will be removed. Shall your settings, and what it has learnt, be removed too? Yes removes \
all. No keeps them in the folder $INSTDIR. Cancel leaves everything as it is."
!define REMOVED "Pointalk is removed."
!define END_IT "Pointalk is running. Please end it: choose File, then Exit, in its control panel. Then choose Retry here. \
Cancel leaves everything as it is."

Page instfiles
UninstPage instfiles

Var RemovesSettings

; Waits until the program can be replaced: Windows lets nobody write to one that runs.
!macro WaitForTheEnd
  ${Do}
    ${IfNot} ${FileExists} "$INSTDIR\Pointalk.exe"
      ${Break}
    ${EndIf}
    ClearErrors
    FileOpen $0 "$INSTDIR\Pointalk.exe" a
    ${IfNot} ${Errors}
      FileClose $0
      ${Break}
    ${EndIf}
    ${If} ${Silent}
      SetErrorLevel 3
      Quit
    ${EndIf}
    ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "${END_IT}" IDCANCEL`
      SetErrorLevel 1
      Quit
    ${EndIf}
  ${Loop}
!macroend

Function .onInit
  SetShellVarContext current
  ${If} ${Cmd} `MessageBox MB_OKCANCEL|${IN_FRONT} "${BEFORE_INSTALLING}" /SD IDOK IDCANCEL`
    SetErrorLevel 1
    Quit
  ${EndIf}
  !insertmacro WaitForTheEnd
FunctionEnd

Section
  SetOutPath "$INSTDIR"
  File "${FOLDER}/Pointalk.exe"
  File "${FOLDER}/guide.html"
  SetOverwrite off  ; the user's own
  File "${FOLDER}/PTK.ini"
  WriteUninstaller "$INSTDIR\Uninstall.exe"

  ; A shortcut's program starts in the folder that is set here; the first run leaves its mark there.
  CreateShortcut "$SMPROGRAMS\Pointalk.lnk" "$INSTDIR\Pointalk.exe"
  CreateShortcut "$SMPROGRAMS\Pointalk Guide.lnk" "$INSTDIR\guide.html"

  ; By this Windows finds the bare name that its list of programs to start holds.
  WriteRegStr HKCU "${APP_PATHS_KEY}" "" "$INSTDIR\Pointalk.exe"
  WriteRegStr HKCU "${APP_PATHS_KEY}" "Path" "$INSTDIR"

  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayName" "Pointalk"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\Pointalk.exe"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "Publisher" "Corvane"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\Uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\Uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "EstimatedSize" ${KILOBYTES}
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD HKCU "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

Function .onInstSuccess
  ${If} ${Cmd} `MessageBox MB_YESNO "${INSTALLED}" /SD IDNO IDYES`
    Exec '"$INSTDIR\Pointalk.exe"'
  ${EndIf}
FunctionEnd

Function un.onInit
  SetShellVarContext current
  StrCpy $RemovesSettings no
  MessageBox MB_YESNOCANCEL|MB_DEFBUTTON2|${IN_FRONT} "${BEFORE_REMOVING}" /SD IDNO IDYES all IDNO program
  SetErrorLevel 1
  Quit
  all:
  StrCpy $RemovesSettings yes
  program:
  !insertmacro WaitForTheEnd
FunctionEnd

; A file that the program writes, and what is left of one when it was killed meanwhile.
!macro RemoveWritten NAME
  Delete "$INSTDIR\${NAME}.new"
  ${If} $RemovesSettings == yes
    Delete "$INSTDIR\${NAME}"
  ${EndIf}
!macroend

Section "Uninstall"
  SetAutoClose true  ; AutoCloseWindow is for installing alone
  Delete "$INSTDIR\Pointalk.exe"
  Delete "$INSTDIR\guide.html"
  !insertmacro RemoveWritten "PTK.ini"
  !insertmacro RemoveWritten "status.txt"
  !insertmacro RemoveWritten "ClassName.txt"
  !insertmacro RemoveWritten "BadClasses.txt"
  !insertmacro RemoveWritten "DidWarn.flg"
  ; What was started has handed over to a copy of itself, and may not have ended yet: 10 seconds are for that.
  StrCpy $0 0
  ${Do}
    ClearErrors
    Delete "$INSTDIR\Uninstall.exe"
    ${IfNot} ${Errors}
      ${ExitDo}
    ${EndIf}
    Sleep 100
    IntOp $0 $0 + 1
  ${LoopUntil} $0 = 100
  SetOutPath "$TEMP"  ; nobody can remove the folder that is the current one
  RMDir "$INSTDIR"  ; only when nothing is left in it

  Delete "$SMPROGRAMS\Pointalk.lnk"
  Delete "$SMPROGRAMS\Pointalk Guide.lnk"
  DeleteRegKey HKCU "${APP_PATHS_KEY}"
  ; Only an administrator may change this list. The value is useless without the program.
  ReadRegStr $0 HKLM "${RUN_KEY}" "Pointalk"
  ${If} $0 == "Pointalk.exe"
    DeleteRegValue HKLM "${RUN_KEY}" "Pointalk"
  ${EndIf}

  DeleteRegKey HKCU "${UNINSTALL_KEY}"  ; last, so that a removal that was broken off can be repeated
SectionEnd

Function un.onUninstSuccess
  MessageBox MB_OK "${REMOVED}" /SD IDOK
FunctionEnd
