; The setup program: installs Kelvane for the current user, without administrator rights, into a
; folder in which kelvane.ini may be written beside the program.
;
; Defined by windows.sh: WORLD (x64 or x86), VERSION, FOLDER (what to install), REMOVE (a file with
; a line for each installed file that removes it), SIZE (in KB), SIDE (picture of the last page),
; OUTPUT.
;
; Silent: setup.exe /S [/D=FOLDER]; uninstall.exe /S keeps kelvane.ini. Exit code 3: a program is
; in use.
;
; Palettes are the user's to edit: setup leaves those alone that are there, and the uninstaller
; removes a palette only when it is byte for byte the one that setup brought.
!if ${WORLD} == x64
  Target amd64-unicode
!else
  Target x86-unicode
!endif
!include MUI2.nsh
!include LogicLib.nsh

!define REGISTRY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Kelvane"
!define EXIT_IN_USE 3

Name "Kelvane"
OutFile "${OUTPUT}"
SetCompressor /SOLID lzma
RequestExecutionLevel user
ManifestDPIAware true
BrandingText "Kelvane ${VERSION}"
InstallDir "$LOCALAPPDATA\Programs\Kelvane"
InstallDirRegKey HKCU "${REGISTRY}" InstallLocation

VIProductVersion ${VERSION}.0
VIAddVersionKey /LANG=0 ProductName "Kelvane"
VIAddVersionKey /LANG=0 ProductVersion "${VERSION}"
VIAddVersionKey /LANG=0 FileVersion "${VERSION}"
VIAddVersionKey /LANG=0 FileDescription "Kelvane setup (${WORLD})"
VIAddVersionKey /LANG=0 LegalCopyright "The Kelvane authors"

!define MUI_ICON "..\res\icon\kelvane.ico"
!define MUI_UNICON "..\res\icon\kelvane.ico"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${SIDE}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\kelvane.exe"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE English
!insertmacro MUI_LANGUAGE German

LangString InUse ${LANG_ENGLISH} \
  "$0 cannot be changed: Kelvane is running.$\n$\nPlease close it, then choose Retry."
LangString InUse ${LANG_GERMAN} \
  "$0 kann nicht geändert werden: Kelvane läuft noch.$\n$\nBitte schließen Sie es und wählen Sie dann Wiederholen."
LangString RemoveSettings ${LANG_ENGLISH} \
  "Remove your settings as well?$\n$\n$INSTDIR\kelvane.ini"
LangString RemoveSettings ${LANG_GERMAN} \
  "Sollen auch Ihre Einstellungen entfernt werden?$\n$\n$INSTDIR\kelvane.ini"

; A program that runs cannot be opened for writing. Nothing has been changed yet when this ends the
; setup.
!macro WaitUntilFree un
  Function ${un}WaitUntilFree ; file on the stack
    Pop $0
    ${DoWhile} ${FileExists} "$0"
      ClearErrors
      FileOpen $1 "$0" a
      ${IfNot} ${Errors}
        FileClose $1
        ${ExitDo}
      ${EndIf}
      ${If} ${Cmd} `MessageBox MB_RETRYCANCEL|MB_ICONEXCLAMATION "$(InUse)" /SD IDCANCEL IDCANCEL`
        SetErrorLevel ${EXIT_IN_USE}
        Quit
      ${EndIf}
    ${Loop}
  FunctionEnd
!macroend
!insertmacro WaitUntilFree ""
!insertmacro WaitUntilFree un.

!macro WaitForPrograms un
  Push "$INSTDIR\kelvane.exe"
  Call ${un}WaitUntilFree
  Push "$INSTDIR\kelvane-cli.exe"
  Call ${un}WaitUntilFree
!macroend

Section
  !insertmacro WaitForPrograms ""
  SetOutPath "$INSTDIR"
  File /x *.pal "${FOLDER}\*"
  SetOverwrite off
  File "${FOLDER}\*.pal"
  SetOverwrite on
  WriteUninstaller "$INSTDIR\uninstall.exe"
  CreateShortcut "$SMPROGRAMS\Kelvane.lnk" "$INSTDIR\kelvane.exe"
  WriteRegStr HKCU "${REGISTRY}" DisplayName "Kelvane"
  WriteRegStr HKCU "${REGISTRY}" DisplayVersion "${VERSION}"
  WriteRegStr HKCU "${REGISTRY}" DisplayIcon "$INSTDIR\kelvane.exe"
  WriteRegStr HKCU "${REGISTRY}" Publisher "The Kelvane authors"
  WriteRegStr HKCU "${REGISTRY}" InstallLocation "$INSTDIR"
  WriteRegStr HKCU "${REGISTRY}" UninstallString '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${REGISTRY}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${REGISTRY}" EstimatedSize ${SIZE}
  WriteRegDWORD HKCU "${REGISTRY}" NoModify 1
  WriteRegDWORD HKCU "${REGISTRY}" NoRepair 1
SectionEnd

Function un.RemoveUnlessEdited ; name of a file in $INSTDIR on the stack; its original is in $PLUGINSDIR
  Pop $0
  FileOpen $1 "$INSTDIR\$0" r
  FileOpen $2 "$PLUGINSDIR\$0" r
  ${Do}
    FileReadByte $1 $3 ; empty at the end
    FileReadByte $2 $4
    ${If} $3 != $4
      ${ExitDo}
    ${EndIf}
  ${LoopUntil} $3 == ""
  FileClose $1
  FileClose $2
  ${If} $3 == $4
    Delete "$INSTDIR\$0"
  ${EndIf}
FunctionEnd

!macro RemoveUnlessEdited file
  File "/oname=$PLUGINSDIR\${file}" "${FOLDER}\${file}"
  Push "${file}"
  Call un.RemoveUnlessEdited
!macroend

Section Uninstall
  !insertmacro WaitForPrograms un.
  InitPluginsDir
  !include "${REMOVE}"
  Delete "$INSTDIR\uninstall.exe"
  ${If} ${FileExists} "$INSTDIR\kelvane.ini"
  ${AndIf} ${Cmd} `MessageBox MB_YESNO|MB_ICONQUESTION|MB_DEFBUTTON2 "$(RemoveSettings)" /SD IDNO IDYES`
    Delete "$INSTDIR\kelvane.ini"
  ${EndIf}
  RMDir "$INSTDIR" ; stays when it holds anything that is not ours
  Delete "$SMPROGRAMS\Kelvane.lnk"
  DeleteRegKey HKCU "${REGISTRY}"
SectionEnd
